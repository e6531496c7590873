#include "matching/correlate.h"

#include <Eigen/Core>
#include <algorithm>
#include <cmath>
#include <numbers>

#include "matching/fft.h"

namespace matching {
namespace {

constexpr float kWhitening = 0.7f;                  // 1 would weigh every bin alike, noise included
constexpr float kEvening = 0.8f;                    // 1 would bring pauses to full level
constexpr double kLowEdge = 120, kHighEdge = 3700;  // Hz; hum below, the converter's edge above

using Samples = Eigen::Map<Eigen::ArrayXf>;

Samples view(std::span<float> samples) {
  return {samples.data(), static_cast<Eigen::Index>(samples.size())};
}

// Hann window of that length, kept for the next call of the same thread.
const Eigen::ArrayXf& taper(std::size_t count) {
  thread_local Eigen::ArrayXf window;
  const auto size = static_cast<Eigen::Index>(count);
  if (window.size() != size) {
    const auto step = static_cast<float>(2 * std::numbers::pi / double(count));
    window =
        0.5f - 0.5f * (step * (Eigen::ArrayXf::LinSpaced(size, 0.5f, float(size) - 0.5f))).cos();
  }
  return window;
}

std::vector<float> tapered(std::span<const float> samples) {
  std::vector<float> out(samples.begin(), samples.end());
  evenLevel(out);
  view(out) *= taper(out.size());
  return out;
}

// x becomes the cross spectrum, its magnitudes brought nearer to each other.
void whitenProduct(Spectrum& x, const Spectrum& y) {
  const auto bins = static_cast<Eigen::Index>(x.size());
  const double hertzPerBin = kSampleRate / 2.0 / double(bins - 1);
  const auto low = static_cast<Eigen::Index>(kLowEdge / hertzPerBin);
  const auto high = static_cast<Eigen::Index>(kHighEdge / hertzPerBin);
  Eigen::Map<Eigen::ArrayXcf> a(x.data(), bins);
  a *= Eigen::Map<const Eigen::ArrayXcf>(y.data(), bins).conjugate();
  a *= ((a.abs2() + 1e-20f).log() * (-kWhitening / 2)).exp();
  a.head(low) = 0;
  a.tail(bins - high) = 0;
}

}  // namespace

void evenLevel(std::span<float> samples) {
  constexpr float kMemory = 1 - 1.0f / (0.05f * kSampleRate);
  Samples x = view(samples);
  const float mean = x.abs().mean() + 1e-9f;
  Eigen::ArrayXf level(x.size());
  float running = mean;
  for (Eigen::Index i = 0; i < x.size(); ++i)
    level(i) = running = running * kMemory + std::abs(x(i)) * (1 - kMemory);
  running = mean;
  for (Eigen::Index i = x.size(); i-- > 0;) {
    running = running * kMemory + std::abs(x(i)) * (1 - kMemory);
    level(i) += running;
  }
  x *= ((level / 2 + 0.05f * mean).log() * -kEvening).exp();
}

std::vector<float> correlate(std::span<const float> a, std::span<const float> b, int maxLag) {
  Spectrum x = forward(tapered(a));
  whitenProduct(x, forward(tapered(b)));
  std::vector<float> whole = inverse(x, a.size());
  const float noise = std::sqrt(view(whole).square().mean());
  std::vector<float> lags(static_cast<std::size_t>(2 * maxLag + 1), 0.0f);
  if (!(noise > 0)) return lags;
  std::copy_n(whole.end() - maxLag, maxLag, lags.begin());
  std::copy_n(whole.begin(), maxLag + 1, lags.begin() + maxLag);
  view(lags) /= noise;
  return lags;
}

}  // namespace matching
