#include "vote/peaks.h"

#include <gtest/gtest.h>

#include <cmath>

namespace vote {
namespace {

void put(std::vector<HitCode>& hits, int frames, int count) {
  const int delta = *deltaOfFrames(10'000 + frames, 10'000);
  hits.insert(hits.end(), count, pack({3, 1, 2, delta}));
}

TEST(StrongestPeaks, AreCountedWithTheirNeighboursAndHeldAgainstTheirSurroundings) {
  std::vector<HitCode> hits;
  put(hits, -1000, 20), put(hits, -999, 10), put(hits, -998, 7);  // 37 at -999, less at the rest
  put(hits, -995, 9);                                             // part of the same peak
  put(hits, 500, 12);                                             // alone: nothing expected
  for (int frames = 2000; frames < 3000; ++frames) put(hits, frames, 5);
  put(hits, 2500, 25);  // 40 hits, but 15 are no surprise here
  const auto peaks = strongestPeaks(hits, 0);
  ASSERT_EQ(peaks.size(), 4u);
  EXPECT_EQ(peaks[0].hits, 37);
  EXPECT_NEAR(peaks[0].offsetSeconds, (-999 - 13.0 / 37) * 0.024, 1e-9);
  EXPECT_NEAR(peaks[0].significance, 37, 0.2);
  EXPECT_EQ(peaks[1].hits, 12);
  EXPECT_NEAR(peaks[1].offsetSeconds, 12.0, 1e-9);
  EXPECT_EQ(peaks[2].hits, 40);
  EXPECT_NEAR(peaks[2].significance, 25 / 4.0, 1e-9);
  for (std::size_t i = 1; i < peaks.size(); ++i) {
    EXPECT_LE(peaks[i].significance, peaks[i - 1].significance);
    EXPECT_GT(std::abs(peaks[i].offsetSeconds - peaks[i - 1].offsetSeconds), 0.1);
  }
}

TEST(StrongestPeaks, LieAmongTheHits) {
  std::vector<HitCode> hits;
  put(hits, 600, 6), put(hits, 475, 1);  // one frame later, the single hit would be out of sight
  const double expected = 3.0 / 242;
  EXPECT_NEAR(strongestPeaks(hits, 0)[0].significance, (6 - expected) / std::sqrt(expected + 1),
              1e-9);
}

TEST(StrongestPeaks, FillersAndFewHitsMakeNone) {
  std::vector<HitCode> hits;
  put(hits, 0, 8);
  EXPECT_EQ(strongestPeaks(hits, 0).size(), 1u);
  EXPECT_TRUE(strongestPeaks(hits, 8).empty());
  put(hits, -2'000'000, 4), put(hits, 2'000'000, 4);
  EXPECT_TRUE(strongestPeaks(hits, 8).empty());
  EXPECT_TRUE(strongestPeaks({}, 0).empty());
}

}  // namespace
}  // namespace vote
