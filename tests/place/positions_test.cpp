#include "place/positions.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/align/shoot.h"

namespace place {
namespace {

using namespace align;  // matches and what they are of

struct Case {
  const char* what;
  std::vector<Match> matches;
  std::vector<double> seconds;
};

TEST(SolvePositions, WeighsAllMatchesAndTheFarOnesLess) {
  const auto recordings = fourMinutesEach({-1, -1, -1, -1});
  const std::vector<Case> cases{
      {"a chain", {match(0, 1, 10, 30), match(1, 2, 5, 30), match(2, 3, -20, 30)}, {5, 15, 20, 0}},
      {"second before first",
       {match(0, 1, -10, 30), match(0, 2, 1, 30), match(0, 3, 2, 30)},
       {10, 0, 11, 12}},
      {"one match of many is 40 ms off",
       {match(0, 1, 10, 30), match(0, 2, 20, 30), match(0, 3, 30, 30), match(1, 2, 10, 30),
        match(1, 3, 20, 30), match(2, 3, 10.04, 30)},
       {0, 10, 20, 30}}};
  for (const Case& c : cases) {
    const Positions positions = solvePositions(recordings, std::vector{0, 1, 2, 3}, c.matches);
    for (std::size_t i = 0; i < 4; ++i)
      EXPECT_NEAR(positions.seconds[i], c.seconds[i], 0.002) << c.what << ", file " << i;
  }
}

TEST(SolvePositions, TellsEveryClocksDriftWithItsSign) {
  const auto recordings = fourMinutesEach({-1, -1, -1});
  std::vector<Match> matches{match(0, 1, 0, 30), match(1, 2, 0, 30)};
  matches[0].best.driftPpm = 20, matches[1].best.driftPpm = -50;
  for (Match& m : matches) m.best.driftError = 0.1;
  const Positions positions = solvePositions(recordings, std::vector{0, 1, 2}, matches);
  EXPECT_NEAR(*positions.driftPpm[1] - *positions.driftPpm[0], 20, 0.1);
  EXPECT_NEAR(*positions.driftPpm[2] - *positions.driftPpm[0], -30, 0.1);
}

// Matches that cannot all be met leave their recordings off by as much, however many they are.
TEST(SolvePositions, TellsHowFarMatchesDisagree) {
  const auto recordings = fourMinutesEach({-1, -1, -1});
  const auto worst = [&](double off) {
    const Positions positions = solvePositions(
        recordings, std::vector{0, 1, 2},
        std::vector{match(0, 1, 10, 30), match(1, 2, 10, 30), match(0, 2, 20 + off, 30)});
    return std::ranges::max(positions.errorSeconds);
  };
  EXPECT_LT(worst(0), 0.001);
  EXPECT_GT(worst(0.012), 0.003);
  EXPECT_LT(worst(0.012), 0.02);
}

}  // namespace
}  // namespace place
