#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "analysis/collection.h"
#include "analysis/hearing.h"
#include "analysis/landmarks.h"
#include "analysis/peaks.h"
#include "analysis/spectrogram.h"
#include "tests/analysis/reference.h"
#include "tests/analysis/sounds.h"

namespace {

using analysis::Spectrogram;

struct Named {
  const char* name;
  sounds::Samples samples;
};

std::vector<Named> variedSounds() {
  const auto minute = sounds::music(60 * 8000, 5);
  return {{"noise", sounds::noise(40'000, 1)},
          {"tone", sounds::tone(40'000, 440)},
          {"music", minute},
          {"music with noise", sounds::heardWithNoise(minute, 0.3f, 0.02f, 6)},
          {"speech", sounds::speech(60 * 8000, 7)},
          {"clicks", sounds::clicks(40'000, 1900)},
          {"clipped", sounds::clipped(sounds::music(80'000, 8))},
          {"100 samples", sounds::noise(100, 9)},
          {"one block", sounds::noise(384, 10)},
          {"whole blocks", sounds::music(384 * 50, 11)},
          {"odd number of blocks and a rest", sounds::music(384 * 51 + 383, 12)},
          {"long busy sound", sounds::noise(120 * 8000, 13)},
          {"sound between digital silence", [] {
             auto samples = sounds::silence(200'000);
             const auto middle = sounds::speech(60'000, 14);
             std::copy(middle.begin(), middle.end(), samples.begin() + 70'000);
             return samples;
           }()}};
}

// Rounding of another transform is an absolute error of the magnitude, in proportion to the
// loudest bin; the logarithm turns it into a larger one the quieter a bin is.
float largestDifference(const Spectrogram& a, const Spectrogram& b) {
  float largest = 0;
  for (Eigen::Index i = 0; i < a.size(); ++i) {
    const float x = a.data()[i], y = b.data()[i];
    if (std::isfinite(x) || std::isfinite(y)) largest = std::max(largest, std::abs(x - y));
  }
  return largest;
}

TEST(Spectrogram, EqualsPlainReadingUpToRounding) {
  for (const auto& [name, samples] : variedSounds()) {
    for (const int shift : {0, 32, 64}) {
      SCOPED_TRACE(testing::Message() << name << ", shift " << shift);
      const Spectrogram expected = reference::spectrogram(samples, shift);
      const Spectrogram s = analysis::spectrogram(samples, shift);
      ASSERT_EQ(s.rows(), 192);
      ASSERT_EQ(s.cols(), expected.cols());
      EXPECT_LT(largestDifference(s, expected), 0.15f);
    }
  }
}

void expectEqualLandmarks(const Spectrogram& s, float decay, std::int64_t capacity) {
  analysis::ForwardPeaks forward(s.cols(), decay, capacity);
  for (const auto& column : s.colwise()) forward.add(column.data());
  EXPECT_EQ(forward.peaks(), reference::forwardPeaks(s, decay, capacity));
  const auto kept =
      analysis::backwardPeaks(s.cols(), forward.last().data(), forward.peaks(), decay);
  EXPECT_EQ(kept, reference::backwardPeaks(s, forward.peaks(), decay));
  EXPECT_EQ(analysis::pairPeaks(kept, {}), reference::pairPeaks(kept, 31, 63));
}

// Read in pieces, for all delays at once and without a whole spectrogram ever being kept.
TEST(Landmarks, EqualThoseOfWholeSpectrograms) {
  for (const auto& [name, samples] : variedSounds()) {
    SCOPED_TRACE(name);
    analysis::SamplesInMemory source(samples);
    const auto delays = analysis::landmarksOf(source, analysis::kShifts, {0.98f});
    ASSERT_EQ(delays.size(), analysis::kShifts.size());
    const auto seconds = static_cast<std::int64_t>(samples.size() / 8000);
    for (std::size_t i = 0; i < delays.size(); ++i) {
      const Spectrogram s = analysis::spectrogram(samples, analysis::kShifts[i]);
      const auto forward = reference::forwardPeaks(s, 0.98f, 50 * (seconds == 0 ? 5 : seconds));
      auto expected = reference::pairPeaks(reference::backwardPeaks(s, forward, 0.98f), 31, 63);
      if (expected.size() < 2) expected.clear();
      EXPECT_EQ(delays[i], expected);
    }
  }
}

// The level is told from products and from counted sizes; every way has to come to the same.
TEST(Level, EqualsThatOfThePlainLogarithms) {
  for (const float loudness : {1.0f, 1e-2f, 1e-4f, 30.0f}) {
    for (const auto& [name, unscaled] : variedSounds()) {
      SCOPED_TRACE(testing::Message() << name << " times " << loudness);
      auto samples = unscaled;
      for (float& sample : samples) sample *= loudness;
      const Spectrogram s = analysis::spectrogram(samples, 0);
      const Spectrogram expected = reference::spectrogram(samples, 0);
      if (!std::isfinite(expected(0, 0))) continue;  // shorter than a frame
      EXPECT_LT((s.col(0) - expected.col(0)).cwiseAbs().minCoeff(), 1e-4f);
    }
  }
}

TEST(Peaks, EqualPlainReadingToTheBit) {
  for (const auto& [name, samples] : variedSounds()) {
    const Spectrogram s = analysis::spectrogram(samples, 32);
    for (const float decay : {0.995f, 0.98f, 0.9f}) {
      for (const std::int64_t capacity : {250, 5000}) {  // the smaller one binds
        SCOPED_TRACE(testing::Message() << name << ", " << decay << ", " << capacity);
        expectEqualLandmarks(s, decay, capacity);
      }
    }
  }
}

// Few different values make plateaus, equally high bins and peaks in the last bin, which recorded
// sound hardly ever has; some of them are no numbers.
TEST(Peaks, EqualPlainReadingOnCoarseValues) {
  std::mt19937 random(1);
  for (int round = 0; round < 60; ++round) {
    SCOPED_TRACE(round);
    std::uniform_int_distribution<int> level(-3, 1 + round % 6);
    Spectrogram s(192, 5 + 7 * round);
    for (float& value : s.reshaped()) value = 0.5f * static_cast<float>(level(random));
    if (round % 5 == 0) s(random() % 192, random() % s.cols()) = std::nanf("");
    if (round % 7 == 0) s(random() % 192, random() % s.cols()) = HUGE_VALF;
    if (round % 7 == 1) s(random() % 192, random() % s.cols()) = -HUGE_VALF;
    expectEqualLandmarks(s, 0.5f + 0.08f * static_cast<float>(round % 7), 40 * (1 + round % 9));
  }
}

}  // namespace
