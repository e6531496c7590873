#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>

#include "export/mlt.h"
#include "tests/run/media.h"

namespace {

constexpr int kRate = 8000;

/// A recording of silence with one click at `seconds`.
timeline::Media clickAt(const Folder& folder, const std::string& name, double seconds) {
  std::vector<std::int16_t> samples(10 * kRate, 0);
  samples[static_cast<std::size_t>(seconds * kRate)] = 30000;
  timeline::Media media;
  media.path = folder.write(name, wavText(samples, kRate));
  media.soundSeconds = 10;
  media.facts.sounds = {{1, kRate, 16, {}, 10, 0}};
  return media;
}

/// A recording of two sound streams, of which the second one was listened to.
timeline::Media twoStreams(const Folder& folder, double first, double second) {
  const std::string one = clickAt(folder, "one.wav", first).path;
  timeline::Media media = clickAt(folder, "two.wav", second);
  const std::string both = folder.file("both.mov");
  EXPECT_TRUE(ffmpeg({"-i", one, "-i", media.path, "-map", "0", "-map", "1", "-c", "copy", both}));
  media.path = both;
  media.facts.sounds.push_back(media.facts.sounds.front());
  media.heardStream = 1;
  return media;
}

std::vector<double> clicksIn(const std::string& wav) {
  const std::size_t data = wav.find("data") + 8;
  std::vector<double> clicks;
  for (std::size_t i = data; i + 2 <= wav.size(); i += 2) {
    std::int16_t sample = 0;
    std::memcpy(&sample, wav.data() + i, 2);
    const double at = double(i - data) / 2 / kRate;
    if (std::abs(sample) > 3000 && (clicks.empty() || at > clicks.back() + 0.5))
      clicks.push_back(at);
  }
  return clicks;
}

TEST(Melt, RendersEveryClipAtItsPlace) {
  if (std::system("command -v melt >/dev/null") != 0) GTEST_SKIP() << "melt is not installed";
  const Folder folder;
  timeline::Project project;
  project.fps = 29.97;
  project.media = {clickAt(folder, "a & b.wav", 1), clickAt(folder, "c.wav", 2),
                   twoStreams(folder, 5, 3)};
  project.groups = {{"Group 1", {{0, 0}, {1, 2.345}, {2, 14.701}}}};
  const std::string document = folder.write("group.mlt", mltDocument(project, project.groups[0]));
  const std::string sound = folder.file("render.wav");
  const std::string command = "melt '" + document + "' -consumer 'avformat:" + sound +
                              "' vn=1 acodec=pcm_s16le ar=8000 ac=1 real_time=-1 >/dev/null 2>&1";
  // melt 7.12 sometimes waits for ever for a consumer that never began
  const std::string tries = "for i in 1 2 3; do timeout 60 " + command + " && exit; done; exit 1";
  ASSERT_EQ(std::system(tries.c_str()), 0);
  const std::vector<double> clicks = clicksIn(readWhole(report::fromUtf8(sound)));
  ASSERT_EQ(clicks.size(), 3u);
  const double halfFrame = 0.5 * 1001 / 30000 + 0.001;
  const double places[] = {1, 4.345, 17.701};
  for (int i = 1; i < 3; ++i)  // against the first: the group's phase moves all alike
    EXPECT_NEAR(clicks[i] - clicks[0], places[i] - places[0], 2 * halfFrame);
  for (int i = 0; i < 3; ++i) EXPECT_NEAR(clicks[i], places[i], 2 * halfFrame);
}

}  // namespace
