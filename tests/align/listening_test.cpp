#include "align/listening.h"

#include <gtest/gtest.h>

#include <random>

#include "align/correlate.h"
#include "align/direct.h"
#include "tests/align/shoot.h"

namespace align {
namespace {

TEST(Listening, FindsAnOffsetBetweenTwoSamples) {
  for (const double start : {3.0, 3.00004, 3.0301}) {
    SCOPED_TRACE(start);
    Shoot shoot;
    shoot.add("a", recorded(1, 0, 25));
    shoot.add("b", recorded(1, start, 20));
    const Alignment found = shoot.verified(3.02);
    EXPECT_TRUE(believed(found));
    EXPECT_NEAR(found.offsetSeconds, start, 0.1 / kSampleRate);
    EXPECT_FALSE(believed(shoot.verified(8.0)));
  }
}

TEST(Listening, MeasuresTheDriftOfTwoClocks) {
  Shoot shoot;
  shoot.add("a", recorded(1, 0, 130, 20));
  shoot.add("b", recorded(1, 5, 120, -25));
  const Alignment found = shoot.verified(5.0);
  EXPECT_NEAR(found.driftPpm, -45, 0.5);
  const double middle = 65;  // where the position is right
  EXPECT_NEAR(found.offsetSeconds, middle * 1.00002 - (middle - 5) * 0.999975, 0.0001);
}

// Drift takes the last windows out of reach of an offset that is right for the first ones only.
TEST(Listening, ComesNearerWhereTheOffsetIsVague) {
  Shoot shoot;
  shoot.add("a", recorded(1, 0, 250, 60));
  shoot.add("b", recorded(1, 5, 240, -60));
  const SoundReader sound = shoot.reader();
  Listening listening({0, 1, shoot.recordings[0].samples, shoot.recordings[1].samples}, 5.125,
                      sound);
  (void)listening.glance();
  const Alignment found = listening.exact();
  EXPECT_EQ(found.support, found.windows);
  EXPECT_NEAR(found.driftPpm, -120, 0.5);
  EXPECT_NEAR(found.offsetSeconds, 125 * 1.00006 - 120 * 0.99994, 0.0001);
}

// A copy has the microphone's own noise too.
TEST(Listening, KnowsACopyFromASecondMicrophone) {
  Shoot shoot;
  const std::vector<float> sound = recorded(1, 0, 25, 0, 0.1);
  shoot.add("a", sound);
  shoot.add("b", {sound.begin() + 3 * kSampleRate, sound.end()});
  EXPECT_TRUE(shoot.verified(3.0).copy);
  shoot.sounds[1] = recorded(1, 3, 22, 0, 0.1);
  const Alignment other = shoot.verified(3.0);
  EXPECT_TRUE(believed(other));
  EXPECT_FALSE(other.copy);
}

// A phone that takes most of what it hears for noise: one window says more than chance ever does,
// and few of the others anything.
TEST(Listening, HearsWhatComesThroughNowAndThen) {
  Shoot shoot;
  shoot.add("recorder", recorded(1, 0, 60));
  std::vector<float> phone = recorded(2, 0.5, 60);
  const std::vector<float> heard = recorded(1, 36, 10);
  std::copy(heard.begin(), heard.end(), phone.begin() + 36 * kSampleRate);
  shoot.add("phone", phone);
  const Alignment found = shoot.verified(0.01);
  EXPECT_TRUE(believed(found));
  EXPECT_LT(found.support * 4, found.windows);
  EXPECT_NEAR(found.offsetSeconds, 0, 0.1 / kSampleRate);
}

// Exchanged wires turn the correlation upside down; its second highest peak is no place.
TEST(Listening, HearsARecordingWhoseSignIsInverted) {
  Shoot shoot;
  shoot.add("a", recorded(1, 0, 25, 0, 0.1));
  std::vector<float> inverted = recorded(1, 3.0301, 20, 0, 0.1);
  for (float& s : inverted) s = -s;
  shoot.add("b", inverted);
  const Alignment found = shoot.verified(3.02);
  EXPECT_TRUE(believed(found));
  EXPECT_NEAR(found.offsetSeconds, 3.0301, 0.1 / kSampleRate);
  EXPECT_FALSE(believed(shoot.verified(8.0)));
}

// Its bearer stood at three places, from which the sound came later and later.
TEST(Listening, HearsARecordingThatWasCarriedAbout) {
  Shoot shoot;
  shoot.add("a", recorded(1, 0, 60));
  std::vector<float> carried;
  for (const double late : {0.0, 0.011, 0.03}) {
    const double start = 3 + double(carried.size()) / kSampleRate;
    const std::vector<float> stood = recorded(1, start - late, 15);
    carried.insert(carried.end(), stood.begin(), stood.end());
  }
  shoot.add("b", carried);
  const Alignment found = shoot.verified(3.02);
  EXPECT_TRUE(believed(found));
  EXPECT_TRUE(found.varies);
  EXPECT_NEAR(found.offsetSeconds, 3 - 0.015, 0.001);
  EXPECT_NEAR(found.errorSeconds, 0.015, 0.001);
  EXPECT_EQ(found.support, found.windows);
  EXPECT_FALSE(believed(shoot.verified(8.0)));
}

TEST(DirectSound, IsThePeakWhoseEchoesExplainTheOthers) {
  // b hears an echo 80 samples late and louder than the direct sound, which stands 80 samples later
  // in the correlation than the line through the highest peak; as seen from b it is the reverse.
  const std::vector<ResponsePeak> loudEchoInB{{0, 1.0f}, {80, 0.8f}},
      loudEchoInA{{0, 1.0f}, {-80, 0.8f}};
  std::vector<float> dry(281, 0.0f), echo(281, 0.0f);
  echo[80] = 0.8f;
  EXPECT_EQ(directSound(loudEchoInB, dry, echo).shiftSamples, 80);
  EXPECT_EQ(directSound(loudEchoInA, echo, dry).shiftSamples, -80);
  EXPECT_GT(directSound(loudEchoInB, dry, dry).doubtSamples, 0);
}

// Four pairs are worked on at once; each must come out as if it were alone, in units of its noise.
TEST(Correlate, FindsEveryPairsOwnLagWhateverTheOthersAre) {
  constexpr int kLength = 4096, kMaxLag = 400;
  std::mt19937 random(3);
  std::normal_distribution<float> normal;
  const int lags[] = {0, -37, 250, 399, 5, -400};
  std::vector<Pieces> pieces;
  for (const int lag : lags) {
    std::vector<float> sound(kLength + 1000);
    for (float& s : sound) s = normal(random);
    const auto at = [&](int from) {
      return std::vector<float>(sound.begin() + from, sound.begin() + from + kLength);
    };
    pieces.push_back({at(450), at(450 + lag)});
  }
  const auto all = correlate(pieces, kMaxLag);
  ASSERT_EQ(all.size(), pieces.size());
  for (std::size_t i = 0; i < all.size(); ++i) {
    SCOPED_TRACE(lags[i]);
    ASSERT_EQ(all[i].size(), 2u * kMaxLag + 1);
    const auto top = std::ranges::max_element(all[i]);
    EXPECT_EQ(top - all[i].begin() - kMaxLag, lags[i]);
    EXPECT_GT(*top, 30);
    const auto alone = correlate(std::span(pieces).subspan(i, 1), kMaxLag);
    EXPECT_EQ(alone[0], all[i]);
    const Pieces twice{pieces[i].a, pieces[i].a};
    EXPECT_EQ(correlateWithSelf(std::span(&twice.a, 1), kMaxLag),
              correlate(std::span(&twice, 1), kMaxLag));
  }
}

}  // namespace
}  // namespace align
