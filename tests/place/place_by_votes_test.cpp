#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>

#include "place/links.h"
#include "place/placement.h"

namespace place {
namespace {

vote::PairVote vote(int first, int second, float offset, float sections) {
  vote::PairVote v{.first = first, .second = second, .stats = {}, .peaks = {}};
  v.accepted = vote::Acceptance::strict;
  v.stats = vote::OffsetStats{offset, sections, offset, 300, 300, 20, 9000};
  return v;
}

std::vector<align::Recording> recordings(std::initializer_list<int> seconds) {
  std::vector<align::Recording> all;
  for (const int length : seconds) {
    all.push_back({std::string(1, static_cast<char>('a' + all.size())), length * 8000ll});
  }
  return all;
}

/// Offset by name, of the first group.
std::map<std::string, double> offsets(const Placement& placement,
                                      const std::vector<align::Recording>& r,
                                      std::size_t group = 0) {
  std::map<std::string, double> byName;
  for (const Placed& member : placement.groups.at(group).members) {
    byName[r[member.file].name] = std::round(member.offsetSeconds * 1000) / 1000;
  }
  return byName;
}

using Offsets = std::map<std::string, double>;

TEST(PlaceByVotes, GroupsStartAtZeroAndTheLargestComesFirst) {
  auto r = recordings({100, 50, 60, 70, 80, 30, 0});
  vote::PairVote refused = vote(0, 5, 4, 30);
  refused.accepted = vote::Acceptance::none;
  const std::vector<vote::PairVote> votes{vote(4, 1, 3, 9), vote(0, 2, -20, 9), vote(3, 2, 5, 8),
                                          refused};
  const Placement placement = placeByVotes(r, votes);
  ASSERT_EQ(placement.groups.size(), 2u);
  EXPECT_EQ(offsets(placement, r), (Offsets{{"d", 0}, {"c", 5}, {"a", 25}}));
  EXPECT_EQ(offsets(placement, r, 1), (Offsets{{"e", 0}, {"b", 3}}));
  EXPECT_EQ(placement.groups[0].members[1].matchedWith, (std::vector{0, 3})) << "strongest first";
  ASSERT_EQ(placement.alone.size(), 1u) << "what has no sound is not mentioned";
  EXPECT_EQ(placement.alone[0].file, 5);
  EXPECT_EQ(placement.alone[0].tried,
            "Compared with 5 recordings: a comes closest; 30 of 32 sections agree on one offset, "
            "too few to be sure.");
  EXPECT_TRUE(placement.doubts.empty());
}

TEST(PlaceByVotes, APairAgainstBetterSupportedOnesIsDroppedAndNamed) {
  const auto r = recordings({100, 50, 60});
  const Placement agreed =
      placeByVotes(r, std::vector{vote(0, 1, 10, 20), vote(0, 2, 15, 18), vote(1, 2, 5.09f, 9)});
  EXPECT_TRUE(agreed.doubts.empty());
  const Placement placement =
      placeByVotes(r, std::vector{vote(1, 2, 5.2f, 9), vote(0, 1, 10, 20), vote(0, 2, 15, 18)});
  EXPECT_EQ(offsets(placement, r), (Offsets{{"a", 0}, {"b", 10}, {"c", 15}}));
  EXPECT_EQ(placement.doubts,
            std::vector<std::string>{"b and c seem to match 5.20 s apart, but better supported "
                                     "matches put them 5.00 s apart; this match was left out."});
  EXPECT_LT(placement.groups[0].members[1].confidence, agreed.groups[0].members[1].confidence);
}

TEST(PlaceByVotes, RecordingsOfOneDeviceNeverOverlap) {
  auto r = recordings({100, 50, 60, 30});
  r[1].device = r[2].device = 7;
  const std::vector<vote::PairVote> votes{vote(0, 1, 10, 20), vote(0, 2, 59.95f, 9),
                                          vote(2, 3, 1, 25)};
  EXPECT_EQ(placeByVotes(r, votes).groups[0].members.size(), 4u) << "50 ms are no overlap";
  auto closer = votes;
  closer[1] = vote(0, 2, 40, 9);
  const Placement placement = placeByVotes(r, closer);
  const std::string why =
      "b would overlap c of the same device by 20.00 s; b, the worse supported one, was taken out.";
  EXPECT_EQ(placement.doubts, std::vector{why}) << "c has two matches";
  EXPECT_EQ(offsets(placement, r), (Offsets{{"a", 0}, {"c", 40}, {"d", 41}}));
  ASSERT_EQ(placement.alone.size(), 1u);
  EXPECT_EQ(placement.alone[0].tried, why);
}

TEST(PlaceByVotes, TheOrderOfFilesChangesNothing) {
  const auto r = recordings({100, 50, 60, 30, 90, 20});
  const std::vector<vote::PairVote> votes{vote(0, 1, 10, 9),   vote(0, 2, 15, 9),
                                          vote(1, 2, 5.3f, 9), vote(0, 3, 2, 12),
                                          vote(2, 3, -12, 5),  vote(4, 5, 3, 4)};
  const Placement straight = placeByVotes(r, votes);
  std::vector<int> place{0, 1, 2, 3, 4, 5};  // where each file stands now
  while (std::ranges::next_permutation(place).found) {
    std::vector<align::Recording> moved(6);
    for (int i = 0; i < 6; ++i) moved[place[i]] = r[i];
    std::vector<vote::PairVote> renamed = votes;
    for (vote::PairVote& v : renamed) v.first = place[v.first], v.second = place[v.second];
    std::ranges::rotate(renamed, renamed.begin() + place[0]);
    const Placement other = placeByVotes(moved, renamed);
    ASSERT_EQ(other.doubts, straight.doubts);
    ASSERT_EQ(offsets(other, moved), offsets(straight, r));
    ASSERT_EQ(offsets(other, moved, 1), offsets(straight, r, 1));
  }
}

TEST(ConfidenceOf, GrowsWithSupportAndWithLinksAndStaysBelowOne) {
  const Link weak{0, 1, 0, 1.5}, strong{0, 2, 0, 31};
  const std::vector<Link> both{strong, weak};
  const double one = confidenceOf(std::span(&weak, 1)), other = confidenceOf(std::span(&strong, 1));
  EXPECT_LT(0, one);
  EXPECT_LT(one, other);
  EXPECT_LT(other, confidenceOf(both));
  EXPECT_LT(confidenceOf(both), 1);
  EXPECT_LT(supportOf(vote(0, 1, 0, 8)), supportOf(vote(0, 1, 0, 9)));
}

}  // namespace
}  // namespace place
