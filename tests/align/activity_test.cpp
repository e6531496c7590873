#include "align/activity.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "tests/align/shoot.h"

namespace align {
namespace {

Eigen::Index activeFrames(const Envelope& envelope) {
  Eigen::Index count = 0;
  for (Eigen::Index i = 0; i < envelope.cols(); ++i) count += isActive(envelope, i, 1);
  return count;
}

TEST(Activity, SteadyNoiseOfAnyColourIsNotAndSilenceNeither) {
  for (const float deep : {0.0f, 0.5f, 0.98f}) {
    const Envelope envelope = envelopeOf(waiting(4, 60, deep));
    EXPECT_LT(activeFrames(envelope), envelope.cols() / 20);
  }
  EXPECT_EQ(activeFrames(envelopeOf(std::vector<float>(60 * kSampleRate, 0.0f))), 0);
  const Envelope events = envelopeOf(recorded(1, 0, 60, 0, 0.02));
  EXPECT_GT(activeFrames(events), events.cols() * 9 / 10);
}

TEST(Activity, RangesAreWhereBothAre) {
  Envelope a = Envelope::Zero(kEnvelopeBands, 400), b = Envelope::Zero(kEnvelopeBands, 200);
  a.block(3, 40, 2, 160) = 90;                           // 40 to 200
  b.block(0, 0, 1, 40) = b.block(9, 120, 1, 80) = -100;  // 80 to 120 and 200 to 280, 80 later
  const auto ranges = activeRanges(a, b, 80);
  ASSERT_EQ(ranges.size(), 1u);
  EXPECT_EQ(ranges[0].from, 80);
  EXPECT_EQ(ranges[0].to, 120);
  EXPECT_TRUE(activeRanges(a, b, 240).empty());
  EXPECT_TRUE(activeRanges(a, b, 400).empty());
  const auto middle = middleOf({{0, 10}, {20, 50}, {90, 110}}, 20);  // 10 to 30 of 60 in line
  ASSERT_EQ(middle.size(), 1u);
  EXPECT_EQ(middle[0].from, 30);
  EXPECT_EQ(middle[0].to, 50);
  EXPECT_EQ(middleOf({{0, 10}, {20, 50}}, 40).size(), 2u);
}

}  // namespace
}  // namespace align
