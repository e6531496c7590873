#pragma once

#include <array>

#include "analysis/fft.h"

namespace analysis {

/// A Gaussian over the distance of two bins, worked out once. Distances are measured in widths of
/// 30 bins by a function, because the passes round this measure differently.
class Bell {
 public:
  explicit Bell(float (*widths)(int distance));

  /// The factors of bins 0 to kBins - 1 for a bell around `bin`.
  const float* around(int bin) const { return &factors_[kBins - 1 - bin]; }

 private:
  std::array<float, 2 * kBins - 1> factors_;
};

/// The level that a peak has to exceed, one per bin.
class Envelope {
 public:
  /// `spectrum` (kBins values) spread over 120 bins below and 119 above each of its own. `decay`:
  /// the factor by which the level falls from frame to frame.
  Envelope(const float* spectrum, float decay);

  /// Nowhere below `value` times the bell around `bin` from now on.
  void raise(int bin, float value, const Bell& bell);
  void fall();

  /// Whether any of the kBins values of `spectrum` exceeds the envelope; false where not a number.
  bool isExceededBy(const float* spectrum) const;

  float operator[](int bin) const { return levels_[bin]; }

 private:
  std::array<float, kBins> levels_;
  float decay_;
  bool settled_ = false;  // falling changes nothing any more
};

/// Bells of the forward pass, and of the backward pass and the spreading of a spectrum.
const Bell& forwardBell();
const Bell& backwardBell();

}  // namespace analysis
