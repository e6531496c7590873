#include "place/group.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

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
  const Grouping grouping = formGroups(recordings, {match(0, 2, 10, 40), match(1, 2, 20, 30)});
  EXPECT_EQ(grouping.members, (std::vector<std::vector<int>>{{0, 2}}));
  EXPECT_EQ(grouping.doubts.size(), 1u);
  ASSERT_EQ(grouping.undecided.size(), 1u);
  EXPECT_EQ(grouping.undecided[0].match.best.first, 1);
  EXPECT_NE(grouping.undecided[0].why.find("of one device"), std::string::npos);
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

TEST(FormGroups, RepetitionsAreDecidedByAllMatchesOfTwoGroups) {
  const auto recordings = fourMinutesEach({-1, -1, -1});
  // 2 fits 0 at 30, 36 or 42 and 1 at 14, 20 or 26: where 1 stands 10 after 0, two places suit
  // both.
  const Grouping open = formGroups(
      recordings, {match(0, 1, 10, 40), match(0, 2, 30, 40, {36}), match(1, 2, 20, 40, {26})});
  EXPECT_EQ(open.members[0].size(), 2u);
  const Grouping decided = formGroups(
      recordings, {match(0, 1, 10, 40), match(0, 2, 30, 40, {42}), match(1, 2, 14, 40, {20})});
  ASSERT_EQ(decided.members[0].size(), 3u);
  EXPECT_NEAR(decided.position[2] - decided.position[0], 30, 1e-9);
}

TEST(FormGroups, WhatFitsMuchWorseElsewhereTooIsOnlyARepetition) {
  const auto recordings = fourMinutesEach({-1, -1, -1, -1});
  const Grouping grouping =
      formGroups(recordings, {match(0, 1, 10, 40), match(2, 3, 7, 40), match(1, 2, 20, 15, {26})});
  EXPECT_EQ(grouping.members, (std::vector<std::vector<int>>{{0, 1}, {2, 3}}));
  EXPECT_TRUE(grouping.doubts.empty());
}

TEST(FormGroups, PartOfWhatTheRecordingsShareWithOthersDecidesNothing) {
  const auto recordings = fourMinutesEach({-1, -1, -1, -1});
  Match bridge = match(1, 2, 20, 30);
  const std::vector<Match> pairs{match(0, 1, 10, 40), match(2, 3, 7, 40)};
  const auto joined = [&] {
    return formGroups(recordings, {pairs[0], pairs[1], bridge}).members.size() == 1;
  };
  EXPECT_TRUE(joined());
  bridge.best.support = bridge.best.windows * 5 / 8;  // speech between
  EXPECT_FALSE(joined());
  bridge = match(1, 2, 20, 21);
  EXPECT_TRUE(joined());
  bridge.best.distinct = 0.6 * pairs[0].best.distinct;
  EXPECT_FALSE(joined());
}

// Recording 0 is long and hears one loop every 10 s; 1 and 2 are clips of 12 s that hear it too.
// What fits both clips at one offset only would fit 10 s away as well, where they hardly overlap.
TEST(FormGroups, ARepetitionThatCouldNotBeSeenDecidesNothing) {
  std::vector<align::Recording> recordings = fourMinutesEach({-1, -1, -1, -1});
  recordings[1].samples = recordings[2].samples = 12 * align::kSampleRate;
  const Match clips = match(1, 2, 3, 9), heard = match(0, 1, 40, 12, {50}),
              placed = match(0, 2, 73, 20), beside = match(0, 3, 5, 30);
  const Grouping grouping = formGroups(recordings, {clips, heard, placed, beside});
  EXPECT_EQ(grouping.members, (std::vector<std::vector<int>>{{0, 2, 3}}));
  ASSERT_EQ(grouping.doubts.size(), 2u);
  EXPECT_NE(grouping.doubts[1].find("a repetition would look the same"), std::string::npos);

  Match loud = clips;
  loud.best.strength = 20;
  EXPECT_EQ(formGroups(recordings, {loud, heard, placed, beside}).members[0].size(), 4u);
}

// Two devices' clips, three of each, which their own copies hold together much more strongly than
// the devices hear each other: one by one those matches may be repetitions.
TEST(FormGroups, GroupsAreJoinedByWhatAllTheirRecordingsImply) {
  auto recordings = fourMinutesEach({1, 2, 3, 4, 5, 6});
  std::vector<Match> matches{match(0, 1, 5, 100), match(1, 2, 5, 100), match(3, 4, 5, 100),
                             match(4, 5, 5, 100)};
  const auto groups = [&](const Heard& heard) {
    return formGroups(recordings, matches, heard).members.size();
  };
  const Heard none = [](int, int) { return false; };
  matches.push_back(match(0, 3, 20, 30));
  EXPECT_EQ(groups(none), 2u);  // one alone may be a repetition
  matches.push_back(match(0, 4, 25, 30));
  EXPECT_EQ(groups(none), 2u);  // of one recording
  matches.push_back(match(2, 5, 20, 30));
  EXPECT_EQ(groups(none), 1u);
  EXPECT_EQ(groups([](int, int) { return true; }), 2u);  // three of the nine that must hear so
  matches.back() = match(2, 5, 20, 30, {60});
  EXPECT_EQ(groups(none), 2u);  // it repeats
  matches.back().rivals.clear();
  for (Recording& recording : recordings) recording.device = -1;
  EXPECT_EQ(groups(none), 2u);  // all may be of one device
}

// Whoever has two files of one sound still hears other microphones as they are.
TEST(FormGroups, CopiesDoNotMakeOthersLookFaint) {
  const auto recordings = fourMinutesEach({-1, -1, -1, -1});
  std::vector<Match> matches{match(0, 1, 0, 100), match(2, 3, 0, 100), match(0, 2, 20, 30)};
  EXPECT_EQ(formGroups(recordings, matches).members.size(), 2u);
  matches[0].best.copy = matches[1].best.copy = true;
  EXPECT_EQ(formGroups(recordings, matches).members.size(), 1u);
}

// Two groups of three that one match would lay over each other: the other eight pairs must then
// hear each other as well.
TEST(FormGroups, JoinsOnlyWhatTheImpliedOverlapsBearOut) {
  const auto recordings = fourMinutesEach({-1, -1, -1, -1, -1, -1});
  std::vector<Match> matches{match(0, 1, 5, 40), match(1, 2, 5, 40), match(0, 2, 10, 40),
                             match(3, 4, 5, 40), match(4, 5, 5, 40), match(3, 5, 10, 40),
                             match(0, 3, 50, 30)};
  const auto told = [](int, int) { return true; };
  const Grouping untold = formGroups(recordings, matches);
  EXPECT_EQ(untold.members.size(), 1u);
  EXPECT_EQ(untold.untested.size(), 5u);  // six of the bridge's nine pairs suffice, one is known
  const Grouping apart = formGroups(recordings, matches, told);
  EXPECT_EQ(apart.members.size(), 2u);
  ASSERT_EQ(apart.undecided.size(), 1u);
  EXPECT_NE(apart.undecided[0].why.find("hear each other too, and do not"), std::string::npos);

  for (const int a : {0, 1, 2})
    for (const int b : {3, 4, 5})
      if (a != 0 || b != 3) matches.push_back(match(a, b, 50 + 5 * (b - 3) - 5 * a, 30));
  EXPECT_EQ(formGroups(recordings, matches, told).members.size(), 1u);
  matches.resize(7);
  for (Match& pair : matches) pair.best.strength *= 0.4;  // so faint that silence says nothing
  EXPECT_EQ(formGroups(recordings, matches, told).members.size(), 1u);
}

}  // namespace
}  // namespace place
