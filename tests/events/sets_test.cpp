#include "bench/events/sets.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "bench/events/cache.h"
#include "bench/events/electronic.h"
#include "bench/score.h"
#include "tests/fresh_path.h"

namespace events {
namespace {

TEST(Sets, SameSeedSameSoundsKeptOrNot) {
  const std::filesystem::path folder = freshPath("kept-sets");
  Renderer plain("", ""), keeping("", folder);
  const auto first = plain("playback", 3);
  EXPECT_EQ(plain("playback", 3).sounds, first.sounds);
  EXPECT_EQ(keeping("playback", 3).sounds, first.sounds);
  ASSERT_FALSE(std::filesystem::is_empty(folder));
  EXPECT_EQ(keeping("playback", 3).sounds, first.sounds);  // read back this time
  std::filesystem::remove_all(folder);
}

TEST(Sets, ChainsHearOnlyTheirNeighbours) {
  for (unsigned seed = 1; seed <= 20; ++seed) {
    Random random(seed);
    const Set set = makeSet(seed % 2 ? "hall" : "chain", random);
    ASSERT_EQ(set.takes.size(), 10u);
    for (std::size_t i = 0; i < 10; ++i)
      for (std::size_t j = i + 1; j < 10; ++j) {
        const double overlap = truthOf(set, i, j).overlap;
        if (j > i + 1) {
          EXPECT_LE(overlap, 1e-9);
        } else {
          EXPECT_TRUE(overlap >= 5 - 1e-9 && overlap <= 15 + 1e-9) << overlap;
          EXPECT_NE(set.takes[i].device, set.takes[j].device);
        }
      }
  }
}

// Clips of one recording are the same samples where they overlap, and the truth knows it.
TEST(Sets, CutClipsAreTheRecordingsOwnSamples) {
  Random random(2);
  Set set{"cut", {{Kind::speech, 20}}};
  Microphone mic;
  mic.driftPpm = 40;
  set.recordings.push_back({"", 0, 0, 1, 15, mic});
  for (const std::int64_t first : {12345, 40001}) {
    Take clip{"a.wav", 0, 0, 1 + double(first) / kRate / (1 + 40e-6), 6, mic};
    clip.cut = {0, first};
    set.takes.push_back(clip);
  }
  const auto sounds = renderAll(set, {}, random);
  const int offset = 40001 - 12345;
  EXPECT_NEAR(truthOf(set, 0, 1).offset * kRate, offset, 0.01);
  EXPECT_TRUE(std::equal(sounds[0].begin() + offset, sounds[0].end(), sounds[1].begin()));
}

TEST(Sets, ElectronicLoopsRepeatToTheSample) {
  Random random(3);
  const auto sound = electronicMusic(20, random);
  bool repeats = false;  // after four bars of 100 to 140 beats a minute, within the first section
  const auto first = sound.begin() + 20000;
  for (int period = 16 * 60 * kStageRate / 141; period < 16 * 60 * kStageRate / 99; ++period)
    repeats |= std::equal(first, first + 20000, first + period);
  EXPECT_TRUE(repeats);
}

}  // namespace
}  // namespace events
