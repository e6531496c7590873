#include "bench/score.h"

#include <gtest/gtest.h>

namespace events {
namespace {

// Four devices over one event, each overlapping the next by 10 s, and a stranger.
Set fourAndStranger() {
  Set set{"set", {{Kind::speech, 100}, {Kind::speech, 100}}};
  for (int i = 0; i < 4; ++i) set.takes.push_back({"a.wav", 0, i, 20.0 * i, 30, {}});
  set.takes.push_back({"b.wav", 1, 4, 0, 30, {}});
  return set;
}

place::Placed at(int file, double offset, double confidence, double error = 0.001) {
  return {file, offset, confidence, error, {}, {}};
}

TEST(Score, CountsWhatStandsRightWrongAndAlone) {
  const Set set = fourAndStranger();
  struct Case {
    const char* what;
    std::vector<place::PlacedGroup> groups;
    int right, wrong, strangers, misplaced, joined;
  };
  const Case cases[] = {
      {"nothing placed", {}, 0, 0, 0, 0, 0},
      {"all placed", {{{at(0, 0, 1), at(1, 20, 1), at(2, 40, 1), at(3, 60, 1)}}}, 3, 0, 0, 0, 6},
      {"two groups", {{{at(0, 0, 1), at(1, 20, 1)}}, {{at(2, 0, 1), at(3, 20, 1)}}}, 2, 0, 0, 0, 2},
      {"one of three wrong", {{{at(0, 0, 1), at(1, 20, 1), at(2, 41, 1)}}}, 1, 2, 0, 1, 1},
      {"a stranger", {{{at(0, 0, 1), at(4, 3, 1)}}}, 0, 1, 1, 2, 0},
  };
  for (const Case& c : cases) {
    const Score score = scoreOf(set, {c.groups, {}, {}});
    EXPECT_EQ(score.pairs.all, 3) << c.what;
    EXPECT_EQ(score.joined.all, 6) << c.what;
    EXPECT_EQ(score.pairs.right, c.right) << c.what;
    EXPECT_EQ(score.wrong, c.wrong) << c.what;
    EXPECT_EQ(score.strangers, c.strangers) << c.what;
    EXPECT_EQ(score.misplaced, c.misplaced) << c.what;
    EXPECT_EQ(score.joined.right, c.joined) << c.what;
  }
}

TEST(Score, KeepsPromisesApart) {
  const Score score =
      scoreOf(fourAndStranger(),
              {{{{at(0, 0, 0.95), at(1, 20.002, 0.6, 0.01)}}, {{at(2, 0, 0.995), at(4, 7, 0.995)}}},
               {},
               {}});
  EXPECT_EQ(score.promised[1].right, 1);  // 0.5 to 0.7
  EXPECT_EQ(score.promised[3].right, 1);  // 0.9 to 0.99
  EXPECT_EQ(score.promised[4].right, 0);
  EXPECT_EQ(score.promised[4].all, 2);
  EXPECT_EQ(score.limits[1].right, 1);
  EXPECT_EQ(score.limits[2].right, 0);  // one of the two is given less than 0.7
  EXPECT_EQ(score.limits[4].wrong, 1);
  EXPECT_EQ(score.limits[4].misplaced, 2);
  EXPECT_EQ(score.errorHeld.all, 2);  // both are 2 ms off; one says 1, the other 10
  EXPECT_EQ(score.errorHeld.right, 1);
}

TEST(Score, ShortClipsBelongTogetherIfMostOfThemIsShared) {
  Set set{"set", {{Kind::speech, 100}}};
  set.takes = {{"a.wav", 0, 0, 0, 60, {}}, {"b.wav", 0, 1, 10, 4, {}}, {"c.wav", 0, 1, 58, 4, {}}};
  EXPECT_TRUE(belongTogether(set, 0, 1));
  EXPECT_FALSE(belongTogether(set, 0, 2));
}

}  // namespace
}  // namespace events
