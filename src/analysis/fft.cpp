#include "analysis/fft.h"

#include <cmath>
#include <numbers>

namespace analysis {
namespace {

template <typename T>
T squaredMagnitude(const std::complex<T>& z) {
  return z.real() * z.real() + z.imag() * z.imag();
}

}  // namespace

FrameTransform::FrameTransform() {
  for (int i = 0; i < kFrameLength; ++i) {
    const float hann = 0.5f * (1.0f - std::cos(6.2831855f * static_cast<float>(i) / 383.0f));
    halfWindow_[i] = 0.5f * hann;  // the halves of splitIntoBins, paid for here
  }
  for (int k = 0; k < static_cast<int>(turns_.size()); ++k) {
    const double angle = 2 * std::numbers::pi * k / kFrameLength;
    turns_[k] = Complex(static_cast<float>(-std::sin(angle)), static_cast<float>(-std::cos(angle)));
  }
}

void FrameTransform::powers(const float* samples, float* powers) {
  loadWindowed(samples);
  fft_.fwd(spectrum_.data(), pairs_.data(), kPairs);
  splitIntoBins();
  storeColumns(powers);
}

void FrameTransform::loadWindowed(const float* samples) {
  for (int i = 0; i < kFrameLength; i += 4) {
    const Lanes window = Lanes::load(&halfWindow_[i]);
    Lanes a = window * Lanes::load(samples + i);
    Lanes b = window * Lanes::load(samples + i + kHop);
    Lanes c = window * Lanes::load(samples + i + 2 * kHop);
    Lanes d = window * Lanes::load(samples + i + 3 * kHop);
    transpose(a, b, c, d);
    pairs_[i / 2] = Complex(a, b);
    pairs_[i / 2 + 1] = Complex(c, d);
  }
}

// A real frame was transformed as half as many complex numbers: take the spectra of its even and
// odd samples apart and turn the odd ones by their delay of one sample.
void FrameTransform::splitIntoBins() {
  const Lanes sum = Lanes(2) * (spectrum_[0].real() + spectrum_[0].imag());
  powers_[0] = sum * sum;
  for (int k = 1; k <= kPairs / 2; ++k) {
    const Complex low = spectrum_[k];
    const Complex high = std::conj(spectrum_[kPairs - k]);
    const Complex even = low + high;
    const Complex odd = (low - high) * turns_[k];
    powers_[k] = squaredMagnitude(even + odd);
    powers_[kPairs - k] = squaredMagnitude(even - odd);
  }
}

void FrameTransform::storeColumns(float* powers) {
  for (int k = 0; k < kBins; k += 4) {
    Lanes a = powers_[k], b = powers_[k + 1], c = powers_[k + 2], d = powers_[k + 3];
    transpose(a, b, c, d);
    a.store(powers + k);
    b.store(powers + k + kBins);
    c.store(powers + k + 2 * kBins);
    d.store(powers + k + 3 * kBins);
  }
}

}  // namespace analysis
