#include "vote/evaluate.h"

#include <gtest/gtest.h>

#include <map>
#include <memory>

#include "tests/vote/event.h"
#include "vote/compare.h"
#include "vote/vote_pairs.h"

namespace vote {
namespace {

/// Passes the strict test and the music test: 10 s of 32 s in common, 20 sections.
const OffsetStats kGood{.bestOffset = -90,
                        .sections = 20,
                        .mostHitsOffset = -90.5,
                        .mostHits = 900,
                        .bestHits = 900,
                        .span = 30,
                        .score = 20'000};
constexpr float kFirst = 100, kSecond = 32;

TEST(OverlapAt, IsWhatBothRecordingsCoverAndHasAFormOfItsOwnAfterTheStart) {
  struct Case {
    float offset, first, second, seconds, sections;
  };
  const Case cases[] = {{0, 100, 32, 32, 16},  {-90, 100, 32, 10, 5}, {5, 100, 32, 27, 13.5},
                        {40, 100, 32, -8, -4}, {-3, 10, 0, 0, 0},     {2, 10, 0, -2, -1.93939f}};
  for (const auto& [offset, first, second, seconds, sections] : cases) {
    SCOPED_TRACE(offset);
    OffsetStats stats = kGood;
    stats.bestOffset = offset;
    const Overlap overlap = overlapAt(stats, first, second);
    EXPECT_FLOAT_EQ(overlap.seconds, seconds);
    EXPECT_NEAR(overlap.sections, sections, 1e-4);
    EXPECT_NEAR(overlap.confidence, sections / 21, 1e-5);
  }
}

TEST(Judge, EveryConditionOfTheStrictTestIsNeeded) {
  struct Case {
    const char* what;
    void (*spoil)(OffsetStats&);
    bool accepted;
  };
  const Case cases[] = {
      {"as it is", [](OffsetStats&) {}, true},
      {"few sections", [](OffsetStats& s) { s.sections = 2; }, false},
      {"span too small", [](OffsetStats& s) { s.sections = 3, s.span = 1; }, false},
      {"span just enough", [](OffsetStats& s) { s.sections = 3, s.span = 2; }, true},
      {"hits below two a second", [](OffsetStats& s) { s.bestHits = 64; }, false},
      {"hits above two a second", [](OffsetStats& s) { s.bestHits = 65; }, true},
      {"score no more than ten a hit", [](OffsetStats& s) { s.score = 9000; }, false},
      {"most hits elsewhere", [](OffsetStats& s) { s.mostHitsOffset = -91; }, false},
      {"most hits at the other sign", [](OffsetStats& s) { s.mostHitsOffset = 90; }, true},
      {"hits below three a common second",
       [](OffsetStats& s) { s.bestOffset = s.mostHitsOffset = -70, s.bestHits = 90; }, false}};
  for (const auto& [what, spoil, accepted] : cases) {
    OffsetStats stats = kGood;
    spoil(stats);
    const Overlap overlap = overlapAt(stats, kFirst, kSecond);
    EXPECT_EQ(judge(stats, overlap, kSecond, 0) == Acceptance::strict, accepted) << what;
  }
}

TEST(Judge, TheMusicTestTakesWhatTheStrictOneRefusesInModeOneOnly) {
  OffsetStats stats = kGood;
  stats.bestHits = 51, stats.score = 301, stats.sections = 2, stats.span = 2;
  const auto accepted = [&](int mode) {
    return judge(stats, overlapAt(stats, kFirst, kSecond), kSecond, mode);
  };
  EXPECT_EQ(accepted(1), Acceptance::music);
  EXPECT_EQ(accepted(0), Acceptance::none);
  EXPECT_EQ(accepted(2), Acceptance::none);
  for (float OffsetStats::*field : {&OffsetStats::bestHits, &OffsetStats::score}) {
    stats.*field -= 1;
    EXPECT_EQ(accepted(1), Acceptance::none);
    stats.*field += 1;
  }
  stats.span = 1;
  EXPECT_EQ(accepted(1), Acceptance::none);
}

TEST(VoteOn, TooFewOrUnrealHitsAreNoVote) {
  const Eigen::VectorXf durations = Eigen::VectorXf::Constant(5, 30);
  std::vector<HitCode> hits{kHitSentinel};
  for (int i = 0; i < 18; ++i) hits.push_back(pack({i, 3, 4, kZeroDelta}));
  EXPECT_FALSE(voteOn(hits, durations, 1)) << "19 elements";
  hits.push_back(pack({18, 3, 4, kZeroDelta}));
  EXPECT_TRUE(voteOn(hits, durations, 1)) << "20 elements";
  EXPECT_FALSE(voteOn(hits, durations.head(4), 1)) << "no such file";
  EXPECT_FALSE(voteOn(std::vector<HitCode>(20, kHitSentinel), durations, 1));
  EXPECT_FALSE(voteOn(std::vector<HitCode>{kHitSentinel, 0}, durations, 1));
}

/// An event of several recordings, with a stranger, a silent one and two of equal length.
class Votes : public testing::Test {
 protected:
  Votes()
      : takes(event::fingerprints({{0, 240, 0.5},
                                   {30, 60, 0.5},
                                   {100, 60},
                                   {60, 100, 0.5},
                                   {900, 50},
                                   {120.5, 10, 0.6},
                                   {0, 0}},
                                  150, 5)) {
    durations.resize(7);
    durations << 240, 60, 60, 100, 50, 10, 0;
  }

  std::vector<float> table(int mode) {
    const std::unique_ptr<std::vector<HitCode>[]> slots(
        proveriall(7, durations, takes.data(), groups));
    std::vector<float> rows;
    evaluatePairs(slots.get(), rows, durations, 8 / 2 * 9, names, mode,
                  {.log = {}, .console = [&](std::string_view line) { lines.emplace_back(line); }});
    return rows;
  }

  std::vector<PairVote> votes(int mode) {
    std::vector<PairVote> all;
    EXPECT_TRUE(votePairs(takes, durations, groups, mode,
                          [&](PairVote vote) { all.push_back(std::move(vote)); }));
    return all;
  }

  std::vector<analysis::MatrixXLI> takes;
  Eigen::VectorXf durations;
  std::vector<std::vector<int>> groups{{4, 5}};
  std::vector<std::string> names{"a", "b", "c", "d", "e", "f", "g"};
  std::vector<std::string> lines;
};

TEST_F(Votes, StreamedVotesGiveTheRowsOfTheTable) {
  std::size_t accepted[2];
  for (const int mode : {0, 1}) {
    std::vector<float> rows;
    for (const PairVote& vote : votes(mode)) {
      if (vote.accepted == Acceptance::none) continue;
      const auto row = syncRow(vote);
      rows.insert(rows.end(), row.begin(), row.end());
    }
    EXPECT_EQ(rows, table(mode));
    accepted[mode] = rows.size() / 6;
  }
  EXPECT_LT(0u, accepted[0]);
  EXPECT_LT(accepted[0], accepted[1]);
  ASSERT_EQ(lines.size(), accepted[0] + accepted[1]);
  EXPECT_TRUE(lines[0].starts_with("totalhits:")) << lines[0];
}

TEST_F(Votes, EveryPairComesOnceInOrderAndCancellingStops) {
  const auto pairs = pairsToCompare(durations, groups);
  const auto all = votes(1);
  ASSERT_EQ(all.size(), pairs.size());
  for (std::size_t i = 0; i < all.size(); ++i) {
    EXPECT_EQ((FilePair{all[i].first, all[i].second}), pairs[i]);
  }
  int handed = 0;
  EXPECT_FALSE(votePairs(
      takes, durations, groups, 1, [&](PairVote) { ++handed; }, [] { return true; }));
  EXPECT_EQ(handed, 0);
}

TEST_F(Votes, PeaksFindTheOffsetAndIgnoreTheRowsOfZeros) {
  const std::map<std::pair<int, int>, double> truth{{{0, 1}, 30},    {{0, 3}, 60},  {{0, 2}, 100},
                                                    {{0, 5}, 120.5}, {{3, 2}, 40},  {{3, 1}, -30},
                                                    {{2, 5}, 20.5},  {{3, 5}, 60.5}};
  for (const PairVote& vote : votes(0)) {
    SCOPED_TRACE(std::to_string(vote.first) + " " + std::to_string(vote.second));
    EXPECT_TRUE(vote.second != 6 || vote.rawHits == 0) << "silence";
    const auto expected = truth.find({vote.first, vote.second});
    if (expected == truth.end()) {
      for (const DeltaPeak& peak : vote.peaks) EXPECT_LT(peak.significance, 9);
      continue;
    }
    ASSERT_FALSE(vote.peaks.empty());
    EXPECT_NEAR(vote.peaks[0].offsetSeconds, expected->second, 0.024);
    EXPECT_GT(vote.peaks[0].significance, 9);
  }
}

}  // namespace
}  // namespace vote
