#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>

#include "export/fcpxml.h"
#include "export/lanes.h"
#include "export/media.h"
#include "export/mlt.h"
#include "export/otio.h"
#include "export/reaper.h"
#include "export/text.h"
#include "export/vegas.h"
#include "export/xmeml.h"
#include "tests/export/dtd.h"
#include "tests/export/reader.h"
#include "tests/export/sample.h"

namespace {

using namespace timeline;
using reader::Placed;

constexpr std::int64_t kRate = 8000;  // positions are whole samples here, so that frames are exact

struct Shot {
  std::int64_t start, length;  // samples
};

struct RandomRun {
  Project project;
  std::map<int, Shot> shots;  // by media
};

const char* const kNames[] = {"plain.mov",
                              "a & b.mov",
                              "<tag> \"quoted\" 'n'.mov",
                              "100 % #1?.mov",
                              "\xF0\x9F\x8E\xAC \xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D.mov",
                              "no\xFFutf\xC3.mov",
                              "bell\a\x1B.mov"};
const char* const kFolders[] = {"/media/", "C:\\Clips\\", "\\\\server\\share\\"};

/// By a camera's own rate, with or without drop-frame numbers, or by the samples of a recorder.
template <typename Below>
project::Timecode anyTimecode(const RandomRun& run, Below below) {
  const Media& media = run.project.media.back();
  const std::int64_t day = 86000;  // seconds, nearly
  if (!media.facts.picture) return {{48000, 1}, below(day * 48000), false};
  const project::Rate rate = media.facts.picture->rate;
  return {rate, below(day * rate.units / rate.seconds), rate.seconds == 1001 && below(2) > 0};
}

/// Two groups of up to 60 clips of a few devices that never overlap themselves, some with several
/// sound streams; long waits reach past 30 hours.
RandomRun randomRun(unsigned seed, double fps) {
  std::mt19937 random(seed);
  const auto below = [&](std::int64_t n) { return static_cast<std::int64_t>(random() % n); };
  RandomRun run;
  run.project.fps = fps;
  int device = 0;
  for (const char* name : {"Group <1>", "Group 2"}) {
    Group group{name, {}};
    const std::int64_t longest = below(2) ? kRate : 12 * 3600 * kRate;
    for (int last = device + 1 + static_cast<int>(below(4)); device < last; ++device) {
      const bool video = below(3) > 0;
      const int channels = 1 + static_cast<int>(below(2));
      const std::int64_t streams = video && below(4) == 0 ? 2 + below(3) : 1;
      const std::int64_t clips = 1 + below(below(4) ? 4 : 15);
      const std::int64_t wait = longest / std::max<std::int64_t>(1, clips / 4);
      std::int64_t at = group.clips.empty() ? 0 : below(wait);
      for (std::int64_t clip = 0; clip < clips; ++clip) {
        const std::int64_t frame = kRate / static_cast<std::int64_t>(fps) + 1;
        const Shot shot{at, below(3) ? frame + below(wait) : frame};
        const int media = static_cast<int>(run.project.media.size());
        const std::string path =
            kFolders[below(3)] + std::to_string(media) + kNames[below(std::size(kNames))];
        const double seconds = static_cast<double>(shot.length) / kRate;
        run.project.media.push_back(
            video
                ? sample::camera(path, seconds, kUsualRates[below(8)], 1920, 1080, channels, device)
                : sample::recorder(path, seconds, channels, 48000, device));
        if (streams > 1)
          run.project.media.back().facts.sounds.assign(streams, {1, 48000, 24, {}, seconds, 0});
        if (below(2)) run.project.media.back().facts.timecode = anyTimecode(run, below);
        group.clips.push_back({media, static_cast<double>(shot.start) / kRate, 0.9});
        run.shots[media] = shot;
        at += shot.length + (below(2) ? below(wait) : 0);
      }
    }
    run.project.groups.push_back(group);
  }
  return run;
}

std::string slashed(std::string path) {
  if (isWindowsPath(path)) std::ranges::replace(path, '\\', '/');
  return path;
}

/// What must be read back on a timeline of `rate`: starts rounded (`half` 1) or cut, lengths cut.
/// `sound` gives the number of sound parts of a clip.
template <typename Sound>
std::vector<Placed> expected(const RandomRun& run, FrameRate rate, int half, Sound sound) {
  std::vector<Placed> result;
  for (const Group& group : run.project.groups)
    for (const Clip& clip : group.clips) {
      const Media& media = run.project.media[clip.media];
      const auto [start, length] = run.shots.at(clip.media);
      const std::int64_t unit = kRate * rate.seconds;
      const double phase = half == 0 ? 0 : bestPhase(run.project, group, rate);
      const double at = static_cast<double>(start) / kRate + phase;
      const std::int64_t first = half == 0 ? start * rate.units / unit : nearestUnit(at, rate);
      const std::int64_t end = first + length * rate.units / unit;
      for (int channel = hasPicture(media) ? 0 : 1; channel <= sound(media); ++channel)
        result.push_back({group.name, slashed(media.path), channel, first, end, 0, 0, at});
    }
  std::ranges::sort(result);
  return result;
}

std::vector<Placed> sorted(std::vector<Placed> clips) {
  std::ranges::sort(clips);
  return clips;
}

/// No two clips of one track overlap, and a device keeps its track.
void expectOrderlyTracks(const RandomRun& run, const std::vector<Placed>& clips) {
  std::map<std::tuple<std::string, bool, int>, std::vector<const Placed*>> tracks;
  std::map<std::tuple<std::string, int, int>, int> trackOfDevice;
  std::map<std::string, int> deviceOf;
  for (const Media& media : run.project.media) deviceOf[slashed(media.path)] = media.device;
  for (const Placed& clip : clips) {
    tracks[{clip.group, clip.channel == 0, clip.track}].push_back(&clip);
    const auto [known, isNew] =
        trackOfDevice.try_emplace({clip.group, deviceOf.at(clip.path), clip.channel}, clip.track);
    EXPECT_EQ(known->second, clip.track) << clip.path;
  }
  for (auto& [track, items] : tracks) {
    std::ranges::sort(items, {}, &Placed::start);
    for (std::size_t i = 1; i < items.size(); ++i)
      EXPECT_LE(items[i - 1]->end, items[i]->start) << items[i]->path;
  }
}

class Positions : public testing::TestWithParam<double> {
 protected:
  template <typename Check>
  void forRandomRuns(Check check) {
    std::int64_t longest = 0;
    for (unsigned seed = 1; seed <= 15; ++seed) {
      SCOPED_TRACE(seed);
      const RandomRun run = randomRun(seed, GetParam());
      for (const auto& [media, shot] : run.shots)
        longest = std::max(longest, shot.start + shot.length);
      check(run, exactRate(GetParam()));
    }
    EXPECT_GT(longest, 30 * 3600 * kRate);
  }
};

TEST_P(Positions, OfXmemlAreThoseThatWentIn) {
  forRandomRuns([](const RandomRun& run, FrameRate rate) {
    const auto channels = [](const Media& media) { return soundChannels(media); };
    for (const XmemlTarget target : {XmemlTarget::finalCut, XmemlTarget::premiere}) {
      const auto complete = reader::xmeml(
          xmemlDocument(run.project, XmemlForm::complete, target, Part::synced), true);
      expectOrderlyTracks(run, complete);
      const auto wanted = expected(run, rate, 1, channels);
      const auto read = sorted(complete);
      ASSERT_EQ(read.size(), wanted.size());
      for (std::size_t i = 0; i < read.size(); ++i) {
        Placed clip = read[i];
        if (clip.soundAt != 0) {  // exact, for which up to a frame may be cut
          EXPECT_NEAR(clip.soundAt, wanted[i].soundAt, 1e-6) << clip.path;
          EXPECT_EQ(clip.start - clip.in, wanted[i].start) << "coarse readers see the same";
          EXPECT_LE(std::abs(wanted[i].end - clip.end), 1);
          clip = wanted[i];
        }
        EXPECT_TRUE(clip == wanted[i]) << clip.path;
      }
    }
  });
}

TEST_P(Positions, OfTheCompactFormAreThoseThatWentIn) {
  forRandomRuns([](const RandomRun& run, FrameRate rate) {
    auto wanted = expected(run, rate, 1, [](const Media&) { return 2; });
    for (Placed& clip : wanted) {  // this form's URLs: no bytes beyond UTF-8, a share's extra slash
      clip.path = cleanText(clip.path);
      if (clip.path.starts_with("//")) clip.path.insert(clip.path.begin(), '/');
    }
    std::ranges::sort(wanted);
    const std::string text =
        xmemlDocument(run.project, XmemlForm::compact, XmemlTarget::premiere, Part::synced);
    const auto read = sorted(reader::xmeml(text, false));
    ASSERT_EQ(read.size(), wanted.size());
    for (std::size_t i = 0; i < read.size(); ++i) {
      // The fragments count in single precision: past four million frames a quarter is lost.
      const std::int64_t slack = wanted[i].end > 4'000'000 ? 1 : 0;
      EXPECT_LE(std::abs(read[i].start - wanted[i].start), slack) << read[i].path;
      EXPECT_LE(std::abs(read[i].end - wanted[i].end), slack) << read[i].path;
      EXPECT_EQ(read[i].path, wanted[i].path);
    }
  });
}

TEST_P(Positions, OfFcpxmlAreThoseThatWentIn) {
  forRandomRuns([](const RandomRun& run, FrameRate rate) {
    for (const FcpxmlVersion version : {FcpxmlVersion::v1_1, FcpxmlVersion::v1_10}) {
      const std::string text = fcpxmlDocument(run.project, version, Part::synced);
      if (dtdFolder()) {
        EXPECT_TRUE(isValidFcpxml(text, version == FcpxmlVersion::v1_10));
      }
      auto read = reader::fcpxml(text, rate);
      auto wanted = expected(run, rate, 1, [](const Media& m) { return hasPicture(m) ? 0 : 1; });
      expectOrderlyTracks(run, read);
      std::ranges::sort(read);
      ASSERT_EQ(read.size(), wanted.size());
      for (std::size_t i = 0; i < read.size(); ++i) {
        const bool sound = read[i].channel == 1;
        EXPECT_LE(wanted[i].end - read[i].end, sound ? 1 : 0);   // sound may lose its cut frame
        const bool oneFrame = read[i].end == read[i].start + 1;  // too short to be shifted
        if (sound && !oneFrame) {
          EXPECT_NEAR(read[i].soundAt, wanted[i].soundAt, 0.6 / 48000);
        }
        read[i].end = wanted[i].end;
        EXPECT_TRUE(read[i] == wanted[i]) << read[i].path;
      }
    }
  });
}

TEST_P(Positions, OfOtioAreThoseThatWentIn) {
  forRandomRuns([](const RandomRun& run, FrameRate rate) {
    std::vector<Placed> read;
    for (const Group& group : run.project.groups)
      for (const Placed& clip : reader::otio(otioDocument(run.project, group), rate))
        read.push_back(clip);
    expectOrderlyTracks(run, read);
    std::ranges::sort(read);
    const auto wanted = expected(run, rate, 1, [](const Media& m) { return soundStreams(m); });
    ASSERT_EQ(read.size(), wanted.size());
    for (std::size_t i = 0; i < read.size(); ++i) {
      if (read[i].soundAt != 0) {
        EXPECT_NEAR(read[i].soundAt, wanted[i].soundAt, 0.6 / 48000) << read[i].path;
        read[i].start = wanted[i].start;  // no frame's edge
      }
      read[i].end = wanted[i].end;  // of sound, in samples
      EXPECT_TRUE(read[i] == wanted[i]) << read[i].path;
    }
  });
}

TEST_P(Positions, OfMltAndReaperAreThoseThatWentIn) {
  forRandomRuns([](RandomRun run, FrameRate rate) {
    run.project.cameraSound = true;  // what is off stands on tracks of its own
    auto wanted = expected(run, rate, 1, [](const Media& media) { return soundStreams(media); });
    std::vector<Placed> mlt, reaper;
    for (const Group& group : run.project.groups) {
      for (Placed& clip : reader::mlt(mltDocument(run.project, group))) {
        clip.path = slashed(clip.path);
        clip.group = group.name;
        mlt.push_back(clip);
      }
      for (Placed& clip : reader::reaper(reaperProject(run.project, group))) reaper.push_back(clip);
    }
    for (Placed& clip : wanted) clip.path = cleanText(clip.path);
    std::ranges::sort(wanted);
    EXPECT_TRUE(sorted(mlt) == wanted);
    std::map<std::string, double> starts;
    for (const auto& [media, shot] : run.shots)
      starts[oneLine(run.project.media[media].path)] = double(shot.start) / kRate;
    EXPECT_EQ(reaper.size(), starts.size());
    for (const Placed& clip : reaper) EXPECT_NEAR(clip.soundAt, starts.at(clip.path), 1e-9);
  });
}

TEST_P(Positions, OfVegasAreThoseThatWentIn) {
  forRandomRuns([](RandomRun run, FrameRate) {
    for (Media& media : run.project.media) {
      media.path = hasPicture(media)
                       ? "/m" + std::to_string(&media - run.project.media.data())
                       : "/s" + std::to_string(&media - run.project.media.data()) + ".wav";
    }
    std::vector<Placed> read;
    report::NoConsole console;
    for (const Group& group : run.project.groups)
      for (const Placed& clip :
           reader::vegas(vegasEditList(run.project, group, console), group.name))
        read.push_back(clip);
    EXPECT_TRUE(sorted(read) == expected(run, {1000, 1}, 0, [](const Media&) { return 1; }));
    expectOrderlyTracks(run, read);
  });
}

INSTANTIATE_TEST_SUITE_P(EveryRate, Positions,
                         testing::Values(23.976, 24, 25, 29.97, 30, 50, 59.94, 60));

}  // namespace
