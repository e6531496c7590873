#include "place/group.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

#include "place/odds.h"
#include "tests/align/shoot.h"

namespace place {
namespace {

using namespace align;  // shoots and their matches

TEST(FormGroups, DropsTheMatchThatTheOthersContradict) {
  const auto recordings = fourMinutesEach({-1, -1, -1, -1});
  std::vector<Match> matches{match(0, 1, 10, 30), match(1, 2, 20, 30),  match(0, 2, 30, 30),
                             match(1, 3, 5, 20),  match(2, 3, -15, 20), match(0, 3, 90, 40)};
  std::ranges::sort(matches, std::greater{}, [](const Match& m) { return m.best.offsetSeconds; });
  const Grouping grouping = formGroups(recordings, matches);
  ASSERT_EQ(grouping.members.size(), 1u);
  EXPECT_EQ(grouping.members[0].size(), 4u);
  EXPECT_NEAR(grouping.position[3] - grouping.position[0], 15, 1e-9);
  ASSERT_EQ(grouping.doubts.size(), 1u);
  EXPECT_NE(grouping.doubts[0].find("file0 and file3"), std::string::npos);
}

TEST(FormGroups, TakesTheRivalThatAgrees) {
  const auto recordings = fourMinutesEach({-1, -1, -1});
  const Grouping grouping =
      formGroups(recordings, {match(0, 1, 10, 40), match(1, 2, 20, 40), match(0, 2, 46, 30, {30})});
  EXPECT_NEAR(grouping.position[2] - grouping.position[0], 30, 1e-9);
  EXPECT_EQ(grouping.kept.size(), 3u);
}

TEST(FormGroups, NeverLaysADevicesFilesOverEachOther) {
  const auto recordings = fourMinutesEach({7, 7, -1});
  const Grouping grouping = formGroups(recordings, {match(0, 2, 10, 40), match(1, 2, 20, 15)});
  EXPECT_EQ(grouping.members, (std::vector<std::vector<int>>{{0, 2}}));
  EXPECT_EQ(grouping.doubts.size(), 1u);
  ASSERT_EQ(grouping.undecided.size(), 1u);
  EXPECT_EQ(grouping.undecided[0].match.best.first, 1);
  EXPECT_NE(grouping.undecided[0].why.find("of one device"), std::string::npos);
}

// Eight recordings that stand with 0 say eight different things of 1, all of them impossible.
TEST(FormGroups, NoneOfManyWaysLaysADevicesFilesOverEachOther) {
  const auto recordings = fourMinutesEach({7, 7, -1, -1, -1, -1, -1, -1, -1, -1});
  std::vector<Match> matches;
  for (const int file : {2, 3, 4, 5, 6, 7, 8, 9}) {
    matches.push_back(match(0, file, 0, 60));
    matches.push_back(match(1, file, 20.0 * file - 60, 30));
    matches.back().best.support = 7;
  }
  const Grouping grouping = formGroups(recordings, matches);
  ASSERT_EQ(grouping.members.size(), 1u);
  EXPECT_EQ(grouping.members[0], (std::vector{0, 2, 3, 4, 5, 6, 7, 8, 9}));
}

TEST(FormGroups, LeavesAloneWhatFitsAtSeveralOffsetsAlike) {
  const auto recordings = fourMinutesEach({-1, -1, -1});
  const Grouping grouping =
      formGroups(recordings, {match(0, 1, 10, 40), match(1, 2, 20, 40, {26, 32})});
  EXPECT_EQ(grouping.members, (std::vector<std::vector<int>>{{0, 1}}));
  ASSERT_EQ(grouping.undecided.size(), 1u);
  ASSERT_EQ(grouping.doubts.size(), 1u);
  EXPECT_NE(grouping.doubts[0].find("26.00 s"), std::string::npos);
}

// 3 fits 0, 1 and 2 each at two offsets, one of them a little better. All three together, not one
// of them alone, say where it stands.
TEST(FormGroups, RepetitionsAreDecidedByAllMatchesOfTwoGroups) {
  const auto recordings = fourMinutesEach({-1, -1, -1, -1});
  std::vector<Match> matches{match(0, 1, 10, 40), match(0, 2, 5, 40), match(1, 2, -5, 40)};
  const auto addRepetition = [&](int file, double offset, double other) {
    matches.push_back(match(file, 3, offset, 40, {other}));
    matches.back().rivals[0].strength = 34;
  };
  addRepetition(0, 30, 42);
  const Grouping open = formGroups(recordings, matches);
  ASSERT_EQ(open.members.size(), 1u);
  EXPECT_EQ(open.members[0].size(), 3u);
  addRepetition(1, 20, 14);
  addRepetition(2, 25, 28);
  const Grouping decided = formGroups(recordings, matches);
  ASSERT_EQ(decided.members[0].size(), 4u);
  EXPECT_NEAR(decided.position[3] - decided.position[0], 30, 1e-9);
}

TEST(FormGroups, PartOfWhatTheRecordingsShareWithOthersDecidesNothing) {
  const auto recordings = fourMinutesEach({-1, -1, -1, -1});
  const auto groups = [&](Match bridge, int support) {
    bridge.best.support = support;
    return formGroups(recordings, {match(0, 1, 10, 40), match(2, 3, 7, 40), bridge}).members.size();
  };
  EXPECT_EQ(groups(match(1, 2, 20, 30), 10), 1u);
  EXPECT_EQ(groups(match(1, 2, 20, 10), 6), 2u);  // speech between
  EXPECT_EQ(groups(match(1, 2, 20, 15, {26}), 10), 2u);
}

// What may repeat leaves its recordings less sure, however sure the others are.
TEST(FormGroups, ConfidenceIsEachRecordingsOwn) {
  const auto recordings = fourMinutesEach({-1, -1, -1});
  Match faint = match(0, 2, 20, 14);
  faint.best.support = 8, faint.best.overlapSeconds = 20, faint.best.spreadSeconds = 18;
  const Grouping grouping = formGroups(recordings, {match(0, 1, 10, 40), faint});
  ASSERT_EQ(grouping.members.size(), 1u);
  EXPECT_GT(grouping.confidence[1], 0.99);
  EXPECT_LT(grouping.confidence[2], grouping.confidence[1]);
  EXPECT_GT(grouping.confidence[2], 0.5);
}

// Two groups of three that one match would lay over each other: the other eight pairs must then
// hear each other as well.
TEST(FormGroups, JoinsOnlyWhatTheImpliedOverlapsBearOut) {
  const auto recordings = fourMinutesEach({-1, -1, -1, -1, -1, -1});
  std::vector<Match> matches{match(0, 1, 5, 40), match(1, 2, 5, 40), match(0, 2, 10, 40),
                             match(3, 4, 5, 40), match(4, 5, 5, 40), match(3, 5, 10, 40),
                             match(0, 3, 50, 20)};
  const auto told = [](int, int) { return true; };
  const auto within = [](int a, int b) { return a / 3 == b / 3 || a + b == 3; };
  const Grouping untold = formGroups(recordings, matches, within);
  EXPECT_EQ(untold.members.size(), 1u);
  EXPECT_EQ(untold.untested.size(), 5u);  // six of the bridge's nine pairs suffice, one is known
  const Grouping apart = formGroups(recordings, matches, told);
  EXPECT_EQ(apart.members.size(), 2u);
  ASSERT_EQ(apart.undecided.size(), 1u);
  EXPECT_NE(apart.undecided[0].why.find("hear each other too, and do not"), std::string::npos);

  for (const int a : {0, 1, 2})
    for (const int b : {3, 4, 5})
      if (a != 0 || b != 3) matches.push_back(match(a, b, 50 + 5 * (b - 3) - 5 * a, 20));
  const Grouping joined = formGroups(recordings, matches, told);
  EXPECT_EQ(joined.members.size(), 1u);
  EXPECT_GT(joined.confidence[0], untold.confidence[0]);
}

// What two recordings share is held against what both share with others, and against what else
// their own match allows.
TEST(OddsOfAMatch, FallWithWhatSpeaksForARepetition) {
  const auto odds = [](Match bridge, bool copies = false) {
    std::vector<Match> matches{match(0, 1, 10, 40), match(2, 3, 7, 40), bridge};
    for (Match& pair : std::span(matches).first(2)) pair.best.copy = copies;
    return Odds(matches).of(bridge);
  };
  const Match plain = match(1, 2, 20, 30);
  const double full = odds(plain)[0];
  EXPECT_GT(full, 2);
  EXPECT_LT(odds(match(1, 2, 20, 12))[0], full - 1);
  EXPECT_GT(odds(match(1, 2, 20, 12), true)[0], odds(match(1, 2, 20, 12))[0]);
  Match part = plain;
  part.best.support = 4;  // speech between
  EXPECT_LT(odds(part)[0], full - 1);
  const auto rivals = odds(match(1, 2, 20, 30, {26}));
  ASSERT_EQ(rivals.size(), 2u);
  EXPECT_LT(rivals[0], full - 1);
  EXPECT_NEAR(rivals[0], rivals[1], 1e-9);

  const Odds known({{match(0, 1, 0, 40), match(1, 2, 0, 40), match(2, 3, 0, 8)}});
  EXPECT_LT(known.ofSilence(0, 2, 10), -1);
  EXPECT_LT(known.ofSilence(0, 2, 100), known.ofSilence(0, 2, 10));
  EXPECT_GT(known.ofSilence(0, 3, 10), known.ofSilence(0, 2, 10));
  EXPECT_EQ(known.ofSilence(0, 7, 10), 0);  // nobody knows what it hears
}

}  // namespace
}  // namespace place
