#include "vote/vote_pairs.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "tests/vote/event.h"
#include "tests/vote/reference.h"
#include "vote/evaluate.h"
#include "vote/peaks.h"

namespace vote {
namespace {

struct Files {
  std::vector<analysis::MatrixXLI> fingerprints;
  Eigen::VectorXf durations;

  void add(analysis::MatrixXLI fingerprint, float seconds) {
    fingerprints.push_back(std::move(fingerprint));
    durations.conservativeResize(durations.size() + 1);
    durations[durations.size() - 1] = seconds;
  }
};

/// `rows` landmarks at random frames of `seconds`, with few hashes: every place of a pair is full.
analysis::MatrixXLI crowd(int rows, double seconds, int hashes, std::mt19937& random) {
  std::vector<std::uint64_t> all(rows);
  for (auto& hash : all) hash = random() % hashes / 60 * 1'000'000 + random() % 60 + 1;
  std::ranges::sort(all);
  analysis::MatrixXLI matrix = analysis::MatrixXLI::Zero(rows + 5, 2);
  const int frames = std::max(1, static_cast<int>(seconds / 0.024));
  for (int row = 0; row < rows; ++row) matrix.row(row + 5) << random() % frames, all[row];
  return matrix;
}

/// Raw hits and peaks of the packed hits of a pair, without the `fillers` among them.
PairVote plainVote(const Files& files, const FilePair& pair, int mode) {
  const auto& x = files.fingerprints[pair.first];
  const auto& y = files.fingerprints[pair.second];
  const auto hits = reference::compareFingerprints(x, y, pair.first, pair.second,
                                                   files.durations[pair.second] + 1);
  PairVote vote = voteOn(hits, files.durations, mode)
                      .value_or(voteWith({}, pair.first, pair.second, files.durations, mode));
  const auto fillers = std::ranges::count_if(
      x.rowwise(), [&](const auto& row) { return row.isZero() && y.row(0).isZero(); });
  if (hits.back() == 0) return vote;
  vote.rawHits = static_cast<int>(hits.size() - 1 - fillers);
  vote.peaks = strongestPeaks(std::span(hits).subspan(1), static_cast<int>(fillers));
  return vote;
}

void expectSame(const PairVote& a, const PairVote& b) {
  SCOPED_TRACE(std::to_string(b.first) + " and " + std::to_string(b.second));
  EXPECT_TRUE(a.first == b.first && a.second == b.second && a.rawHits == b.rawHits);
  EXPECT_EQ(a.eighthHit, b.eighthHit);
  EXPECT_TRUE(a.accepted == b.accepted && a.confidence == b.confidence);
  ASSERT_EQ(a.stats.has_value(), b.stats.has_value());
  if (a.stats) {
    EXPECT_EQ(syncRow(a), syncRow(b));
    EXPECT_EQ(a.stats->mostHitsOffset, b.stats->mostHitsOffset);
    EXPECT_EQ(a.stats->bestHits, b.stats->bestHits);
    EXPECT_EQ(a.stats->span, b.stats->span);
    EXPECT_EQ(a.stats->score, b.stats->score);
  }
  ASSERT_EQ(a.peaks.size(), b.peaks.size());
  for (std::size_t i = 0; i < a.peaks.size(); ++i) {
    EXPECT_EQ(a.peaks[i].offsetSeconds, b.peaks[i].offsetSeconds);
    EXPECT_EQ(a.peaks[i].hits, b.peaks[i].hits);
    EXPECT_EQ(a.peaks[i].significance, b.peaks[i].significance);
  }
}

/// Peaks at the last frame difference of a pair: the end of a recording is heard in another.
analysis::MatrixXLI ends(int frame, int lonely) {
  analysis::MatrixXLI matrix = analysis::MatrixXLI::Zero(8, 2);
  for (int row = 0; row < 7; ++row) matrix.row(row + 1) << frame, 5'000'001 + row;
  matrix(7, 0) = lonely;
  return matrix;
}

/// How many votes had stats.
int expectPlainVotes(const Files& files) {
  const auto pairs = pairsToCompare(files.durations, {});
  int withStats = 0;
  std::size_t next = 0;
  EXPECT_TRUE(votePairs(files.fingerprints, files.durations, pairs, 1, [&](const PairVote& vote) {
    expectSame(vote, plainVote(files, pairs[next++], 1));
    withStats += vote.stats.has_value();
  }));
  EXPECT_EQ(next, pairs.size());
  return withStats;
}

TEST(VotePairs, RecordingsGetTheVotesOfThePlainReading) {
  Files files;
  const std::vector<event::Take> takes{{0, 200, 0.5},   {30, 60, 0.5}, {100, 60},
                                       {60, 100, 0.5},  {900, 50},     {0, 0},
                                       {120.5, 3, 0.9}, {90, 60}};
  for (const unsigned seed : {1, 2}) {
    const auto fingerprints = event::fingerprints(takes, 150, seed);
    for (std::size_t i = 0; i < takes.size(); ++i)
      files.add(fingerprints[i], static_cast<float>(takes[i].seconds));
  }
  EXPECT_GT(expectPlainVotes(files), 20);
}

TEST(VotePairs, CrowdedHitsGetTheVotesOfThePlainReading) {
  std::mt19937 random(7);
  Files files;
  for (const int hashes : {60, 600, 30'000}) {
    for (const int rows : {3, 12, 30, 200, 900}) {
      for (const float seconds : {0.0f, 1.0f, 4.0f, 90.0f})
        files.add(crowd(rows, seconds, hashes, random), seconds);
    }
  }
  EXPECT_GT(expectPlainVotes(files), 50);
}

TEST(VotePairs, PeaksAtTheEndsGetTheVotesOfThePlainReading) {
  Files files;
  files.add(analysis::MatrixXLI::Zero(1, 2), 0);  // hits of file 0 with the next look like filler
  files.add(ends(700, 575), 20);
  files.add(ends(0, 0), 20);
  files.add(ends(300, 425), 20);
  expectPlainVotes(files);
}

TEST(VotePairs, FingerprintsUnlikeThoseOfRecordingsGetTheSameVotes) {
  std::mt19937 random(8);
  Files files;
  files.add(crowd(9, 60, 60, random), 60);
  for (int i = 0; i < 4; ++i) files.add(crowd(300, 30, 600, random), 30);
  files.add(files.fingerprints[2], 2);                // sections beyond those of its length
  files.fingerprints[3].col(1).array() *= 1'000'000;  // no bins, no distance
  files.add(files.fingerprints[3], 30);
  files.fingerprints[4](20, 0) = 2'000'000;  // 13 hours
  files.add(analysis::MatrixXLI::Zero(1, 2), 0);
  files.add(files.fingerprints[2].bottomRows(300), 30);  // without rows of zeros
  EXPECT_GT(expectPlainVotes(files), 5);
}

}  // namespace
}  // namespace vote
