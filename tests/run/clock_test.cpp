#include <gtest/gtest.h>

#include <cmath>
#include <cstring>

#include "run/clock_command.h"
#include "run/media_probe.h"
#include "run/replacement.h"
#include "tests/run/media.h"

namespace {

constexpr int kRate = 8000;

std::vector<std::int16_t> readSamples(const std::string& path) {
  const std::string text = readWhole(report::fromUtf8(path));
  const std::size_t data = text.find("data") + 8;
  std::vector<std::int16_t> samples((text.size() - data) / 2);
  std::memcpy(samples.data(), text.data() + data, samples.size() * 2);
  return samples;
}

/// The moment of the loudest sample within half a second of `seconds`.
double clickNear(const std::vector<std::int16_t>& samples, double seconds) {
  const auto first = std::max<std::int64_t>(0, std::int64_t((seconds - 0.5) * kRate));
  const auto last = std::min<std::int64_t>(std::ssize(samples), first + kRate);
  std::int64_t best = first;
  for (std::int64_t i = first; i < last; ++i)
    if (std::abs(samples[i]) > std::abs(samples[best])) best = i;
  return double(best) / kRate;
}

TEST(NewSound, IsStretchedToTheSampleAndKeepsItsTimecode) {
  const Folder folder;
  std::vector<std::int16_t> clicks(600 * kRate, 0);
  for (const int at : {1, 300, 598}) clicks[at * kRate] = 30000;
  const std::string plain = folder.write("plain.wav", wavText(clicks, kRate));
  const std::string source = folder.file("take 1.wav");
  ASSERT_TRUE(ffmpeg({"-i", plain, "-c:a", "pcm_s16le", "-metadata", "time_reference=288000123",
                      "-write_bext", "1", source}));
  for (const double ppm : {50.0, -123.4}) {
    run::NewSound sound{.source = source,
                        .target = folder.file("new.wav"),
                        .rate = kRate,
                        .bits = 16,
                        .playRate = 1 + ppm * 1e-6,
                        .keepTimecode = true};
    sound.length = std::llround(600 / sound.playRate * kRate);
    const std::atomic<bool> never = false;
    const auto result = run::SystemProcesses().run(run::newSoundCommand("", sound), never);
    ASSERT_TRUE(result.ok()) << result.messages;
    const auto samples = readSamples(sound.target);
    EXPECT_GE(std::ssize(samples), sound.length);
    for (const int at : {1, 300, 598})
      EXPECT_NEAR(clickNear(samples, at), at / sound.playRate, 1.0 / kRate) << ppm;
    const project::MediaFacts facts = run::MediaInfoProbe().query(sound.target).facts;
    ASSERT_TRUE(facts.timecode);
    EXPECT_EQ(facts.timecode->units, 288000123);
    EXPECT_NEAR(facts.sounds[0].lengthSeconds, double(sound.length) / kRate, 1e-6);
  }
}

TEST(NewSound, APieceStandsExactlyInPlace) {
  const Folder folder;
  std::vector<std::int16_t> clicks(20 * kRate, 0);
  clicks[10 * kRate] = 30000;
  run::NewSound sound{.source = folder.write("s.wav", wavText(clicks, kRate)),
                      .target = folder.file("new.wav"),
                      .rate = kRate,
                      .bits = 16,
                      .skip = 5 * kRate + 3,
                      .delay = 0,
                      .length = 30 * kRate};
  const std::atomic<bool> never = false;
  ASSERT_TRUE(run::SystemProcesses().run(run::newSoundCommand("", sound), never).ok());
  EXPECT_EQ(readSamples(sound.target)[5 * kRate - 3], 30000);
  sound.skip = 0;
  sound.delay = 777;
  ASSERT_TRUE(run::SystemProcesses().run(run::newSoundCommand("", sound), never).ok());
  EXPECT_EQ(readSamples(sound.target)[10 * kRate + 777], 30000);
}

/// A recorder's file that is silent but for one sample.
timeline::Media recorder(const Folder& folder, const char* name, int seconds, int channels,
                         std::initializer_list<int> clicks) {
  std::vector<std::int16_t> samples(static_cast<std::size_t>(seconds) * kRate, 0);
  for (const int at : clicks) samples[at] = 30000;
  timeline::Media media;
  media.path = folder.write(name, wavText(samples, kRate));
  if (channels > 1) {
    const std::string wide = folder.file(std::string("wide ") + name);
    EXPECT_TRUE(ffmpeg({"-i", media.path, "-ac", std::to_string(channels), "-c:a", "pcm_s16le",
                        "-af", "pan=2c|c0=c0|c1=c0", wide}));
    media.path = wide;
  }
  media.soundSeconds = seconds;
  media.facts.sounds = {{channels, kRate, 16, {}, double(seconds), 0}};
  return media;
}

TEST(Replacement, JoinsRecordersToTheSampleAndFillsWithTheCamera) {
  const Folder folder;
  timeline::Project timeline;
  timeline.media = {recorder(folder, "camera.wav", 100, 1, {2 * kRate, 90 * kRate}),
                    recorder(folder, "take 1.wav", 40, 1, {30 * kRate, 39 * kRate}),
                    recorder(folder, "take 2.wav", 40, 2, {5, 39 * kRate})};
  timeline.media[0].pictureSeconds = 100;
  timeline.media[0].facts.picture = project::Picture{{25, 1}};
  const double second = 20 + 40;  // the recorder goes on with a new file, as its card wants it
  timeline.groups = {{"Group 1", {{0, 10}, {1, 20}, {2, second}}}};
  run::JoinedSound sound =
      run::replacementOf(timeline, timeline.groups[0], timeline.groups[0].clips[0]);
  sound.target = folder.file("joined.wav");
  const std::atomic<bool> never = false;
  const auto result = run::SystemProcesses().run(run::joinedSoundCommand("", sound), never);
  ASSERT_TRUE(result.ok()) << result.messages;
  EXPECT_EQ(sound.channels, 1);
  const auto samples = readSamples(sound.target);
  ASSERT_EQ(std::ssize(samples), 100 * kRate);
  // camera, first take, second take, camera again; all of the camera's own between is not there
  std::vector<int> clicks;
  for (int i = 0; i < std::ssize(samples); ++i)
    if (samples[i] == 30000) clicks.push_back(i);
  EXPECT_EQ(clicks, (std::vector<int>{2 * kRate, 40 * kRate, 49 * kRate, 50 * kRate + 5, 89 * kRate,
                                      90 * kRate}));
}

TEST(Replacement, GoesByTheCamerasClock) {
  const Folder folder;
  timeline::Project timeline;
  timeline.media = {recorder(folder, "camera.wav", 300, 1, {}),
                    recorder(folder, "take.wav", 400, 1, {60 * kRate, 300 * kRate})};
  timeline.media[0].pictureSeconds = 300;
  timeline.media[0].facts.picture = project::Picture{{25, 1}};
  timeline.groups = {{"Group 1", {{0, 50}, {1, 0}}}};
  timeline.groups[0].clips[0].steady = timeline::Steady{50.01, 1 + 150e-6};
  timeline.groups[0].clips[1].steady = timeline::Steady{0, 1 - 100e-6};
  run::JoinedSound sound =
      run::replacementOf(timeline, timeline.groups[0], timeline.groups[0].clips[0]);
  sound.target = folder.file("joined.wav");
  const std::atomic<bool> never = false;
  ASSERT_TRUE(run::SystemProcesses().run(run::joinedSoundCommand("", sound), never).ok());
  const auto samples = readSamples(sound.target);
  for (const int at : {60, 300}) {
    const double camera = (at / (1 - 100e-6) - 50.01) * (1 + 150e-6);
    EXPECT_NEAR(clickNear(samples, camera), camera, 1.5 / kRate);
  }
}

TEST(NewSound, RatiosAreNearToAHundredthOfAMillionth) {
  for (const double value : {1.0, 1.00005, 0.9999, 1.0000123456, 1.3, 1 / 1.00005}) {
    const auto [over, under] = run::nearestRatio(value);
    EXPECT_LE(std::max(over, under), 1'000'000);
    EXPECT_NEAR(double(over) / double(under), value, 1e-8);
  }
}

}  // namespace
