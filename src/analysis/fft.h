#pragma once

#include <array>
#include <complex>
#include <unsupported/Eigen/FFT>

#include "analysis/lanes.h"

namespace analysis {

inline constexpr int kFrameLength = 384;  // samples of one analysis frame, 48 ms
inline constexpr int kHop = 192;          // samples from one frame to the next, 24 ms
inline constexpr int kBins = 192;         // rows of 8000/384 = 20.83 Hz, from 0 Hz up
inline constexpr int kBatch = 4;          // frames that are transformed together
inline constexpr int kBatchLength = kFrameLength + (kBatch - 1) * kHop;  // samples they span

/// Windowed 384-point Fourier transforms of four overlapping frames at once. Holds the plan and
/// the working space: one object per thread.
class FrameTransform {
 public:
  FrameTransform();

  /// `samples`: kBatchLength samples; frame i starts at i * kHop. `powers`: kBatch columns of
  /// kBins squared magnitudes, one column after the other.
  void powers(const float* samples, float* powers);

 private:
  using Complex = std::complex<Lanes>;
  static constexpr int kPairs = kFrameLength / 2;

  void loadWindowed(const float* samples);
  void splitIntoBins();
  void storeColumns(float* powers);

  Eigen::FFT<Lanes> fft_;
  std::array<float, kFrameLength> halfWindow_;
  std::array<Complex, kPairs / 2 + 1> turns_;
  std::array<Complex, kPairs> pairs_;     // even samples real, odd ones imaginary
  std::array<Complex, kPairs> spectrum_;  // of pairs_
  std::array<Lanes, kBins> powers_;
};

}  // namespace analysis
