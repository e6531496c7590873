#include "align/evidence.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <random>
#include <vector>

#include "align/alignment.h"
#include "tests/align/shoot.h"

namespace align {
namespace {

constexpr int kReach = 800, kCount = 24;
constexpr double kSeconds = 13;

// Correlations of recordings that have nothing in common, in units of chance.
std::vector<WindowCorrelation> unrelated(unsigned seed) {
  std::mt19937 random(seed);
  std::normal_distribution<float> normal;
  std::vector<WindowCorrelation> windows(kCount);
  for (int i = 0; i < kCount; ++i) {
    windows[std::size_t(i)].atSeconds = (i - kCount / 2) * 0.5;
    for (int lag = -kReach; lag <= kReach; ++lag)
      windows[std::size_t(i)].lags.push_back(normal(random));
  }
  return windows;
}

float& at(WindowCorrelation& window, int lag) { return window.lags[std::size_t(kReach + lag)]; }

Evidence heard(const std::vector<WindowCorrelation>& windows) {
  return evidenceOf(windows, kSeconds);
}

TEST(Evidence, NothingInCommonIsEvidenceAgainst) {
  for (unsigned seed = 1; seed < 20; ++seed) EXPECT_LT(heard(unrelated(seed)).logOdds, 0);
}

// No window shows anything: chance alone reaches 3.5 in each of them.
TEST(Evidence, ManyWeakWindowsAreFoundWhicheverTheirSign) {
  for (const float level : {2.8f, -2.8f}) {
    auto windows = unrelated(3);
    for (WindowCorrelation& window : windows) at(window, 120) += level;
    const Evidence evidence = heard(windows);
    EXPECT_GT(evidence.logOdds, kBeyondChance);
    EXPECT_NEAR(evidence.delaySamples, 120, 2);
    std::ranges::reverse(windows);
    EXPECT_EQ(heard(windows).logOdds, evidence.logOdds);
  }
}

TEST(Evidence, ClocksThatDriftApartAreFollowed) {
  constexpr double kSlope = -0.8;  // samples per second: 100 parts in a million
  auto windows = unrelated(4);
  for (WindowCorrelation& window : windows)
    at(window, int(std::lround(-200 + kSlope * window.atSeconds))) += 4;
  const Evidence evidence = heard(windows);
  EXPECT_GT(evidence.logOdds, kBeyondChance);
  EXPECT_NEAR(evidence.delaySamples, -200, 3);
  EXPECT_NEAR(evidence.slope, kSlope, 0.3);
}

// A thump in both recordings at once: one window, or two that share it, as loud as can be.
TEST(Evidence, OneLoudBumpIsNone) {
  auto windows = unrelated(5);
  for (const int i : {8, 9})
    for (int lag = -100; lag <= 100; ++lag)
      at(windows[std::size_t(i)], lag) += lag % 9 > 3 ? 30 : -30;
  EXPECT_LT(heard(windows).logOdds, 0);
}

// Two halls spread what they have in common over a tenth of a second, alike in all windows.
TEST(Evidence, SoundThatRoomsSpreadIsFoundAndItsDoubtTold) {
  std::mt19937 random(6);
  std::normal_distribution<float> normal;
  auto windows = unrelated(6);
  for (int lag = -kReach; lag <= kReach; ++lag) {
    const float common = 0.9f * normal(random) * std::exp(-float(std::abs(lag - 60)) / 150);
    for (WindowCorrelation& window : windows) at(window, lag) += common;
  }
  const Evidence evidence = heard(windows);
  EXPECT_GT(evidence.logOdds, kBeyondChance);
  EXPECT_GT(evidence.doubtSamples, 30);
  EXPECT_NEAR(evidence.delaySamples, 60, 2 * evidence.doubtSamples);
}

TEST(Alignment, TurnedRoundItSaysTheSame) {
  const Alignment there = match(3, 8, 12.5, 20).best, back = mirrored(there);
  EXPECT_EQ(back.first, 8);
  EXPECT_EQ(back.offsetSeconds, -12.5);
  EXPECT_TRUE(sameOffset(mirrored(back), there));
  EXPECT_FALSE(sameOffset(back, there));
}

}  // namespace
}  // namespace align
