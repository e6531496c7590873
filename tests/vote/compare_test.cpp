#include "vote/compare.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <random>
#include <string>

#include "tests/vote/event.h"
#include "tests/vote/reference.h"
#include "vote/join.h"

namespace vote {
namespace {

analysis::MatrixXLI rows(std::initializer_list<std::pair<int, int>> framesAndHashes) {
  analysis::MatrixXLI matrix(framesAndHashes.size(), 2);
  int i = 0;
  for (const auto& [frame, hash] : framesAndHashes) matrix.row(i++) << frame, hash;
  return matrix;
}

TEST(Hit, PackingRoundTripsAndSortsBySectionThenFilesThenDelta) {
  const Hit ascending[] = {{0, 0, 0, 0},      {0, 0, 0, 9'999'999},     {0, 0, 1, 0},
                           {0, 1, 0, 0},      {0, 999, 999, 9'999'999}, {1, 0, 0, 0},
                           {31, 998, 999, 5}, {999'999, 999, 999, 0}};
  for (const Hit& hit : ascending) EXPECT_EQ(unpack(pack(hit)), hit);
  EXPECT_TRUE(std::ranges::is_sorted(ascending, {}, pack));
}

TEST(Hit, DeltaIsTheTimeDifferenceAndNeverLeavesItsDigits) {
  EXPECT_EQ(deltaOfFrames(7, 7), kZeroDelta);
  EXPECT_EQ(deltaOfFrames(8, 7), kZeroDelta + 2);
  EXPECT_EQ(deltaOfFrames(7, 8), kZeroDelta - 3) << "cut after it is raised";
  EXPECT_EQ(secondsOfDelta(*deltaOfFrames(0, 1000)), -24.0f);
  for (std::uint64_t far : {2'083'334ull, 3'000'000ull, ~0ull}) {
    EXPECT_FALSE(deltaOfFrames(far, 0)) << far;
    EXPECT_FALSE(deltaOfFrames(0, far)) << far;
  }
  for (int frames = -2'083'333; frames <= 2'083'333; frames += 7) {
    const auto delta = deltaOfFrames(std::max(frames, 0), std::max(-frames, 0));
    ASSERT_TRUE(delta && *delta >= 0 && *delta < kDeltas);
    ASSERT_EQ(framesOfDelta(*delta), frames);
  }
}

TEST(Hit, SectionsOfAnyInputCanBePacked) {
  EXPECT_EQ(sectionOfFrame(1000, 31.0f), 24);
  const float nan = std::numeric_limits<float>::quiet_NaN();
  for (const float seconds : {0.0f, -1.0f, -5.0f, nan, 1e30f}) {
    const int section = sectionOfFrame(~std::uint64_t{0}, seconds);
    EXPECT_TRUE(section >= 0 && section < kSections) << seconds;
  }
}

TEST(CompareFingerprints, NothingInCommonIsTheSentinelAndAZero) {
  const std::vector<HitCode> none{kHitSentinel, 0};
  EXPECT_EQ(compareFingerprints(rows({{1, 5}}), rows({{1, 6}}), 1, 2, 9, 9), none);
  EXPECT_EQ(compareFingerprints({}, {}, 1, 2, 9, 9), none);
}

TEST(CompareFingerprints, EqualHashesNeverMakeACrossProduct) {
  const auto x = rows({{10, 5}, {20, 5}, {30, 7}}), y = rows({{1, 5}, {2, 5}, {3, 5}, {4, 7}});
  const auto hits = compareFingerprints(x, y, 3, 4, 100, 9);
  const std::vector<HitCode> expected{kHitSentinel, pack({0, 3, 4, *deltaOfFrames(10, 1)}),
                                      pack({0, 3, 4, *deltaOfFrames(20, 1)}),
                                      pack({0, 3, 4, *deltaOfFrames(30, 4)})};
  EXPECT_EQ(hits, expected);
}

TEST(CompareFingerprints, EqualsThePlainReading) {
  const auto takes = event::fingerprints({{0, 200}, {30, 90}, {55.5, 7}, {300, 40}}, 300, 1);
  const float seconds[] = {200, 90, 7, 40};
  for (int i = 0; i < 4; ++i) {
    for (int j = 0; j < 4; ++j) {
      EXPECT_EQ(compareFingerprints(takes[i], takes[j], i, j, seconds[i], seconds[j]),
                reference::compareFingerprints(takes[i], takes[j], i, j, seconds[j]));
    }
  }
}

TEST(SortHits, EqualsTheStandardSort) {
  std::mt19937_64 random(1);
  for (const int bits : {0, 1, 20, 49, 64}) {
    std::vector<HitCode> hits(5000);
    for (HitCode& hit : hits) hit = bits == 0 ? 7 : random() >> (64 - bits);
    std::vector<HitCode> expected = hits;
    std::ranges::sort(expected);
    sortHits(hits);
    EXPECT_EQ(hits, expected) << bits;
  }
}

TEST(PairsToCompare, EveryPairOnceLongerFirstButNoneOfOneDevice) {
  Eigen::VectorXf durations(5);
  durations << 10, 100, 10, 30, 0;
  const std::vector<FilePair> expected{{1, 0}, {0, 2}, {3, 0}, {0, 4},
                                       {1, 3}, {1, 4}, {3, 2}, {3, 4}};
  EXPECT_EQ(pairsToCompare(durations, {{1, 2}, {2, 4, 77, -3}, {0}}), expected);
  EXPECT_TRUE(pairsToCompare(durations.head(1), {}).empty());
  EXPECT_TRUE(pairsToCompare({}, {{0, 1}}).empty());
}

TEST(PairsToCompare, MoreFilesThanTheIndicesCanNameAreLeftOut) {
  const auto pairs = pairsToCompare(Eigen::VectorXf::Zero(1100), {});
  EXPECT_EQ(pairs.size(), 999u * 998 / 2);
  EXPECT_EQ(pairs.back(), (FilePair{997, 998}));
}

TEST(Proveriall, FillsTheSlotsInPairOrderAndSignalsOnce) {
  auto takes = event::fingerprints({{0, 60}, {10, 30}, {20, 90}}, 100, 2);
  Eigen::VectorXf durations(3);
  durations << 60, 30, 90;
  std::vector<int> signals;
  std::vector<std::string> log;
  const CompareCalls calls{.log = [&](std::string_view line) { log.emplace_back(line); },
                           .console = {},
                           .moveprogressignal = [&](int pixels) { signals.push_back(pixels); },
                           .cancelled = {}};
  const std::unique_ptr<std::vector<HitCode>[]> slots(
      proveriall(3, durations, takes.data(), {}, calls));
  const auto pairs = pairsToCompare(durations, {});
  for (std::size_t i = 0; i < 16; ++i) {
    if (i >= pairs.size()) {
      EXPECT_TRUE(slots[i].empty());
      continue;
    }
    const auto [first, second] = pairs[i];
    EXPECT_EQ(slots[i], reference::compareFingerprints(takes[first], takes[second], first, second,
                                                       durations[second] + 1));
  }
  EXPECT_EQ(signals, std::vector{1});
  EXPECT_EQ(log.front(), "entering proveri all   ------->>>>   ");
}

}  // namespace
}  // namespace vote
