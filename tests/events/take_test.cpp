#include "bench/events/take.h"

#include <gtest/gtest.h>

#include "bench/events/codec.h"
#include "bench/events/suppression.h"
#include "bench/events/synthetic.h"
#include "bench/score.h"
#include "tests/events/correlation.h"

namespace events {
namespace {

Microphone dry(double driftPpm = 0) {
  Microphone mic;
  mic.snrDb = 60, mic.room.reverbSeconds = 0, mic.driftPpm = driftPpm;
  return mic;
}

Take take(double start, double seconds, const Microphone& mic) {
  return {"a.wav", 0, 0, start, seconds, mic};
}

// What positions are compared with is what is heard.
TEST(Take, StandsWhereTheTruthSays) {
  Random random(5);
  const std::vector<float> stage = syntheticSpeech(40, random);
  struct Case {
    Take a, b;
  };
  const Case cases[] = {{take(3, 20, dry()), take(4.7131, 25, dry())},
                        {take(9.3377, 12, dry()), take(8.5, 20, dry())},
                        {take(2, 30, dry(80)), take(3.2, 30, dry(-70))}};
  for (const auto& [a, b] : cases) {
    const Set set{"two", {{Kind::speech, 40}}, {a, b}};
    const Truth truth = truthOf(set, 0, 1);
    const auto soundA = render(a, stage, random), soundB = render(b, stage, random);
    const double middle = std::max(a.startSeconds, b.startSeconds) + truth.overlap / 2;
    const int onA = int((middle - a.startSeconds) * kRate);
    const int delay = bestDelay(soundA, soundB, onA - 8000, onA + 8000, 14000);
    EXPECT_NEAR(delay, truth.offset * kRate, 1);
  }
}

TEST(Take, FastClockCountsMoreSamples) {
  Random random(6);
  const std::vector<float> stage = syntheticSpeech(70, random);
  const auto even = render(take(0, 60, dry()), stage, random);
  const auto fast = render(take(0, 60, dry(100)), stage, random);
  EXPECT_NEAR(bestDelay(fast, even, 8000, 24000, 100), 2 * kRate * 100e-6, 1);
  EXPECT_NEAR(bestDelay(fast, even, 456000, 472000, 100), 58 * kRate * 100e-6, 1);
}

// 17 m are 50 ms: the sound of a carried device comes later by what the truth takes off.
TEST(Take, FarDeviceHearsLater) {
  Random random(7);
  const std::vector<float> stage = syntheticSpeech(20, random);
  Take far = take(0, 15, dry());
  far.way = {{0, 17.15}};
  const auto sound = render(far, stage, random);
  const auto near = render(take(0, 15, dry()), stage, random);
  EXPECT_NEAR(bestDelay(sound, near, 40000, 56000, 800), 0.05 * kRate, 1);
}

// Phones must not shift what they spoil: the truth knows nothing of their delays.
TEST(Take, CodecsAndSuppressionDoNotDelay) {
  Random random(8);
  const auto clean = render(take(0, 8, dry()), syntheticSpeech(10, random), random);
  auto gated = clean;
  suppressNoise(gated);
  EXPECT_EQ(bestDelay(gated, clean, 16000, 48000, 400), 0);
  for (const auto& [codec, kilobits] :
       {std::pair{"libopus", 12}, std::pair{"aac", 24}, std::pair{"libmp3lame", 48}})
    EXPECT_NEAR(bestDelay(throughCodec(clean, codec, kilobits), clean, 16000, 48000, 1000), 0, 4)
        << codec;
}

TEST(Suppression, TurnsSteadyNoiseDown) {
  Random random(9);
  std::vector<float> noise(10 * kRate);
  for (float& s : noise) s = float(uniform(random, -0.1, 0.1));
  const auto power = [&] {
    double sum = 0;
    for (std::size_t i = noise.size() / 2; i < noise.size(); ++i)
      sum += double(noise[i]) * noise[i];
    return sum;
  };
  const double before = power();
  suppressNoise(noise);
  EXPECT_LT(power(), 0.2 * before);
}

}  // namespace
}  // namespace events
