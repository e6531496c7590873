#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "analysis/fft.h"

namespace analysis {

/// Finds out what must be known of a whole recording before any value of its spectrogram is: the
/// largest power, and the mean of the logarithms. Takes a fraction of the logarithms' own time,
/// because the logarithm of a product is the sum of them.
class LevelMeter {
 public:
  /// Powers below `faint` may turn out to lie below the floor, which is known only at the end. They
  /// are counted by their size, 64 sizes an octave.
  explicit LevelMeter(float faint) : faint_(faint) {}

  /// The next `frames` frames (at most kBatch) of kBins powers each.
  void add(const float* powers, int frames);

  /// No power counts as less: 120 dB below the largest. Positive.
  float floor() const;

  /// The mean of the magnitudes' natural logarithms, exact to 1e-4; not a number for a recording
  /// without any level.
  float mean() const;

  /// Whether no floor above `faint` has shown; otherwise a meter with a higher one has to measure.
  bool settled() const { return floor() <= faint_; }

 private:
  void addFaint(const float* powers, int count);

  static constexpr int kSizeShift = 17;  // bits of a number that do not tell its size
  static constexpr std::size_t kSizes = std::size_t{1} << (31 - kSizeShift);

  float faint_;
  float largest_ = 0;
  double logSum_ = 0;        // of the powers that are not faint
  std::uint64_t count_ = 0;  // of all powers
  std::vector<std::uint32_t> faintOfSize_ = std::vector<std::uint32_t>(kSizes, 0);
};

/// A bound of the floor for sound that does not exceed full scale.
inline constexpr float kFaintAtFullScale = 4e-8f;

}  // namespace analysis
