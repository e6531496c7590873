#include "bench/events/suppression.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <numbers>
#include <unsupported/Eigen/FFT>

namespace events {
namespace {

constexpr std::size_t kFrame = 256, kHop = kFrame / 2;  // 32 ms at 8 kHz

/// Decides frame by frame how much of each band is let through.
class Gate {
 public:
  void apply(std::vector<std::complex<float>>& bands) {
    constexpr float kSmooth = 0.3f, kRise = 1.01f, kLeast = 0.1f, kMargin = 3;
    level_.resize(bands.size(), 0.0f), floor_.resize(bands.size(), 1e9f);
    gain_.resize(bands.size(), 1.0f);
    for (std::size_t k = 0; k < bands.size(); ++k) {
      level_[k] += kSmooth * (std::norm(bands[k]) - level_[k]);
      floor_[k] = std::min(floor_[k] * kRise, level_[k]);
      const float clear = 1 - kMargin * floor_[k] / (std::norm(bands[k]) + 1e-20f);
      gain_[k] += 0.5f * (std::max(kLeast, clear) - gain_[k]);
      bands[k] *= gain_[k];
    }
  }

 private:
  std::vector<float> level_, floor_, gain_;
};

std::vector<float> rootHann() {
  std::vector<float> window(kFrame);
  for (std::size_t i = 0; i < kFrame; ++i)
    window[i] = float(std::sin(std::numbers::pi * (double(i) + 0.5) / kFrame));
  return window;
}

}  // namespace

void suppressNoise(std::vector<float>& samples) {
  static const std::vector<float> window = rootHann();
  Eigen::FFT<float> fft;
  fft.SetFlag(Eigen::FFT<float>::HalfSpectrum);
  std::vector<float> padded(samples.size() + 2 * kFrame, 0.0f), out(padded.size(), 0.0f);
  std::ranges::copy(samples, padded.begin() + kHop);
  std::vector<float> frame(kFrame);
  std::vector<std::complex<float>> bands;
  Gate gate;
  for (std::size_t at = 0; at + kFrame <= padded.size(); at += kHop) {
    for (std::size_t i = 0; i < kFrame; ++i) frame[i] = padded[at + i] * window[i];
    fft.fwd(bands, frame);
    gate.apply(bands);
    fft.inv(frame, bands, Eigen::Index(kFrame));
    for (std::size_t i = 0; i < kFrame; ++i) out[at + i] += frame[i] * window[i];
  }
  std::copy_n(out.begin() + kHop, samples.size(), samples.begin());
}

}  // namespace events
