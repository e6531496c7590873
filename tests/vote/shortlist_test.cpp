#include "vote/shortlist.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <set>

#include "vote/pair_candidates.h"

namespace vote {
namespace {

using Pairs = std::set<std::pair<int, int>>;

constexpr int kFiles = 60, kPerFile = 5;

std::vector<PairVote> randomVotes() {
  std::mt19937 random(7);
  std::vector<PairVote> votes;
  for (int a = 0; a < kFiles; ++a)
    for (int b = a + 1; b < kFiles; ++b) {
      PairVote vote{.first = a, .second = b, .stats = {}, .peaks = {}};
      const double significance = std::uniform_real_distribution(0.0, 50.0)(random);
      if (random() % 10) vote.peaks.push_back({1.0 * b, 9, significance});
      if (random() % 40 == 0) {
        vote.stats = OffsetStats{3, 2, 3, 9, 9, 2, 1};  // accepted, but faint
        vote.accepted = Acceptance::music;
      }
      votes.push_back(vote);
    }
  return votes;
}

Pairs kept(const std::vector<PairVote>& votes) {
  Shortlist shortlist(kFiles, kPerFile);
  for (const PairVote& vote : votes) shortlist.add(vote);
  Pairs pairs;
  for (const PairVote& vote : shortlist.take()) pairs.emplace(vote.first, vote.second);
  return pairs;
}

// Whether fewer than kPerFile votes of that file stand out more.
bool amongTheBest(const PairVote& vote, int file, const std::vector<PairVote>& votes) {
  return std::ranges::count_if(votes, [&](const PairVote& other) {
           return (other.first == file || other.second == file) &&
                  significanceOf(other) > significanceOf(vote);
         }) < kPerFile;
}

TEST(Shortlist, KeepsWhatIsAcceptedAndTheBestOfEveryFile) {
  std::vector<PairVote> votes = randomVotes();
  Pairs wanted;
  for (const PairVote& vote : votes) {
    if (!vote.stats && vote.peaks.empty()) continue;
    if (vote.accepted != Acceptance::none || amongTheBest(vote, vote.first, votes) ||
        amongTheBest(vote, vote.second, votes))
      wanted.emplace(vote.first, vote.second);
  }
  ASSERT_GT(votes.size(), 2u * kFiles * kPerFile) << "shortened while votes come in";
  EXPECT_EQ(kept(votes), wanted);
  std::ranges::shuffle(votes, std::mt19937(1));
  EXPECT_EQ(kept(votes), wanted) << "in whatever order they come";
}

}  // namespace
}  // namespace vote
