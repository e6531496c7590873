#include "vote/estimate.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "tests/vote/event.h"
#include "tests/vote/reference.h"
#include "vote/compare.h"

namespace vote {
namespace {

bool same(const std::optional<OffsetStats>& a, const std::optional<OffsetStats>& b) {
  if (!a || !b) return !a && !b;
  return a->bestOffset == b->bestOffset && a->sections == b->sections &&
         a->mostHitsOffset == b->mostHitsOffset && a->mostHits == b->mostHits &&
         a->bestHits == b->bestHits && a->span == b->span && a->score == b->score;
}

/// Hits crowded into `deltas` neighbouring deltas of `sections` sections, some of them far off.
std::vector<HitCode> randomHits(int count, int deltas, int sections, std::mt19937& random) {
  std::vector<HitCode> hits{kHitSentinel};
  for (int i = 0; i < count; ++i) {
    const int far = random() % 50 == 0 ? static_cast<int>(random() % 4'000'000) : 0;
    const int delta = kZeroDelta - deltas / 2 + static_cast<int>(random() % deltas) + far;
    hits.push_back(pack({static_cast<int>(random() % sections), 2, 1, delta}));
  }
  std::ranges::sort(hits);
  return hits;
}

/// `perSection` hits at `delta` in each of the sections from `from` to `to`.
void support(std::vector<HitCode>& hits, int delta, int from, int to, int perSection) {
  for (int section = from; section <= to; ++section) {
    for (int i = 0; i < perSection; ++i) hits.push_back(pack({section, 1, 2, delta + 2 * i}));
  }
}

TEST(EstimateOffset, EqualsThePlainReadingOnRandomHits) {
  std::mt19937 random(3);
  int won = 0;
  for (const int count : {0, 1, 2, 3, 5, 20, 100, 400}) {
    for (const int deltas : {1, 2, 6, 40, 300, 20'000}) {
      for (int sections : {1, 2, 32}) {
        const auto hits = randomHits(count, deltas, sections, random);
        const auto stats = estimateOffset(hits);
        won += stats.has_value();
        EXPECT_TRUE(same(stats, reference::estimateOffset(hits)))
            << count << " hits, " << deltas << " deltas, " << sections << " sections";
      }
    }
  }
  EXPECT_GT(won, 20);
}

TEST(EstimateOffset, EqualsThePlainReadingOnRecordings) {
  const auto takes = event::fingerprints({{0, 120}, {20.5, 90}, {70, 20}, {500, 40}}, 200, 4);
  for (int i = 0; i < 4; ++i) {
    for (int j = i + 1; j < 4; ++j) {
      const auto hits = compareFingerprints(takes[i], takes[j], i, j, 0, 90);
      EXPECT_TRUE(same(estimateOffset(hits), reference::estimateOffset(hits))) << i << j;
    }
  }
  const auto stats = estimateOffset(compareFingerprints(takes[0], takes[1], 0, 1, 120, 90));
  ASSERT_TRUE(stats);
  EXPECT_NEAR(stats->bestOffset, 20.5, 0.06);
  EXPECT_GT(stats->sections, 20);
}

TEST(EstimateOffset, NothingToVoteOn) {
  EXPECT_FALSE(estimateOffset({}));
  EXPECT_FALSE(estimateOffset({kHitSentinel}));
  EXPECT_FALSE(estimateOffset({kHitSentinel, 0}));
}

TEST(EstimateOffset, NeighbouringDeltasAreOneCandidateAndAGapStartsAnother) {
  for (const auto& [gap, expected] : {std::pair{1, 1.02f}, {2, 1.0f}}) {
    std::vector<HitCode> hits{kHitSentinel};
    for (int section = 0; section < 9; ++section) {
      for (const int delta : {100, 100 + gap, 100 + 2 * gap}) {
        hits.push_back(pack({section, 1, 2, kZeroDelta + delta}));
      }
    }
    hits.push_back(pack({30, 1, 2, kZeroDelta + 900}));
    hits.push_back(pack({30, 1, 2, kZeroDelta + 950}));
    const auto stats = estimateOffset(hits);
    ASSERT_TRUE(stats);
    EXPECT_TRUE(same(stats, reference::estimateOffset(hits)));
    EXPECT_EQ(stats->bestOffset, expected);
  }
}

TEST(EstimateOffset, MoreSectionsAndScoreDoNotWinWithoutMoreSpan) {
  std::vector<HitCode> hits{kHitSentinel};
  support(hits, kZeroDelta - 3000, 2, 20, 1);  // the lower delta is scored first
  support(hits, kZeroDelta - 3000, 2, 3, 3);
  support(hits, kZeroDelta, 4, 22, 3);
  support(hits, kZeroDelta + 4000, 31, 31, 2);
  const auto stats = estimateOffset(hits);
  ASSERT_TRUE(stats);
  EXPECT_EQ(stats->bestOffset, -30.0f);
  EXPECT_EQ(stats->mostHitsOffset, 0.02f);
}

}  // namespace
}  // namespace vote
