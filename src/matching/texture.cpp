#include "matching/texture.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

#include "matching/correlate.h"
#include "matching/fft.h"

namespace matching {
namespace {

constexpr int kHop = static_cast<int>(kSampleRate / kTextureRate);
constexpr int kWindow = 2 * kHop;
constexpr double kLow = 150, kHigh = 3700;  // Hz
constexpr int kAround = 25;                 // frames on each side that give the level around one

std::array<int, kTextureBands + 1> bandEdges() {
  std::array<int, kTextureBands + 1> edges{};
  for (int b = 0; b <= kTextureBands; ++b) {
    const double hertz = kLow * std::pow(kHigh / kLow, double(b) / kTextureBands);
    edges[static_cast<std::size_t>(b)] = static_cast<int>(hertz * kWindow / kSampleRate + 0.5);
  }
  for (std::size_t b = 1; b < edges.size(); ++b) edges[b] = std::max(edges[b], edges[b - 1] + 1);
  return edges;
}

Texture bandLevels(std::span<const float> samples) {
  static const auto edges = bandEdges();
  const auto frames = static_cast<Eigen::Index>(samples.size()) / kHop;
  Texture levels(frames, kTextureBands);
  std::vector<float> window(kWindow);
  for (Eigen::Index t = 0; t < frames; ++t) {
    for (int i = 0; i < kWindow; ++i) {
      const auto at = static_cast<std::size_t>(t * kHop + i);
      const auto taper = static_cast<float>(std::sin(std::numbers::pi * (i + 0.5) / kWindow));
      window[static_cast<std::size_t>(i)] = at < samples.size() ? samples[at] * taper : 0.0f;
    }
    const Spectrum spectrum = forward(window);
    for (int b = 0; b < kTextureBands; ++b) {
      float power = 0;
      for (int k = edges[static_cast<std::size_t>(b)]; k < edges[static_cast<std::size_t>(b) + 1];
           ++k)
        power += std::norm(spectrum[static_cast<std::size_t>(k)]);
      levels(t, b) = power;
    }
  }
  return levels;
}

// Running mean over kAround frames on both sides.
Eigen::ArrayXf meanAround(const Eigen::ArrayXf& x) {
  const Eigen::Index n = x.size();
  Eigen::ArrayXd sums(n + 1);
  sums(0) = 0;
  for (Eigen::Index i = 0; i < n; ++i) sums(i + 1) = sums(i) + x(i);
  Eigen::ArrayXf mean(n);
  for (Eigen::Index i = 0; i < n; ++i) {
    const Eigen::Index from = std::max<Eigen::Index>(0, i - kAround);
    const Eigen::Index to = std::min(n, i + kAround + 1);
    mean(i) = static_cast<float>((sums(to) - sums(from)) / double(to - from));
  }
  return mean;
}

void toMovement(Texture& levels) {
  const float floor = levels.size() ? levels.mean() * 1e-5f + 1e-12f : 1.0f;
  for (Eigen::Index b = 0; b < levels.cols(); ++b) {
    Eigen::ArrayXf x = (levels.col(b) + floor).log();
    x -= meanAround(x);
    const Eigen::ArrayXf spread = (meanAround(x.square()) + 0.05f).sqrt();
    levels.col(b) = (x / spread).max(-2.0f).min(2.0f);
  }
}

std::size_t powerOfTwo(std::size_t least) {
  std::size_t size = 1024;
  while (size < least) size *= 2;
  return size;
}

Spectrum bandSpectrum(const Texture& texture, Eigen::Index first, Eigen::Index count,
                      Eigen::Index band, std::size_t size) {
  std::vector<float> padded(size, 0.0f);
  const Eigen::Index end = std::min(first + count, texture.rows());
  for (Eigen::Index t = std::max<Eigen::Index>(0, first); t < end; ++t)
    padded[static_cast<std::size_t>(t - first)] = texture(t, band);
  return forward(padded);
}

// Sum over bands of the products, for every lag of b's start from -(rows of b) on.
std::vector<float> correlationOverLags(const Texture& a, const Texture& b) {
  const auto rowsB = static_cast<std::size_t>(b.rows());
  const std::size_t size = powerOfTwo(2 * rowsB), step = size - rowsB;
  std::vector<Spectrum> shorter;
  for (Eigen::Index k = 0; k < kTextureBands; ++k)
    shorter.push_back(bandSpectrum(b, 0, b.rows(), k, size));
  std::vector<float> result(static_cast<std::size_t>(a.rows()) + rowsB, 0.0f);
  for (std::size_t at = 0; at < result.size(); at += step) {
    Spectrum sum(size / 2 + 1);
    const auto first = static_cast<Eigen::Index>(at) - b.rows();
    for (Eigen::Index k = 0; k < kTextureBands; ++k) {
      const Spectrum block = bandSpectrum(a, first, static_cast<Eigen::Index>(size), k, size);
      const Spectrum& other = shorter[static_cast<std::size_t>(k)];
      for (std::size_t f = 0; f < sum.size(); ++f) sum[f] += block[f] * std::conj(other[f]);
    }
    const std::vector<float> lags = inverse(sum, size);
    for (std::size_t i = 0; i < step && at + i < result.size(); ++i) result[at + i] = lags[i];
  }
  return result;
}

// Divides every lag by what chance gives for its number of common frames.
void toStrength(std::vector<float>& lags, Eigen::Index rowsA, Eigen::Index rowsB, double least) {
  double power = 0, count = 0;
  for (std::size_t i = 0; i < lags.size(); ++i) {
    const auto start = static_cast<Eigen::Index>(i) - rowsB;
    const auto common = std::min(rowsA, start + rowsB) - std::max<Eigen::Index>(0, start);
    if (double(common) < least) {
      lags[i] = 0;
      continue;
    }
    lags[i] /= std::sqrt(static_cast<float>(common));
    power += double(lags[i]) * lags[i];
    ++count;
  }
  const auto chance = static_cast<float>(std::sqrt(power / std::max(1.0, count)) + 1e-9);
  for (float& v : lags) v /= chance;
}

}  // namespace

Texture textureOf(std::span<const float> samples) {
  Texture texture = bandLevels(samples);
  if (texture.rows() > 0) toMovement(texture);
  return texture;
}

std::vector<Resemblance> resemblances(const Texture& a, const Texture& b, int count,
                                      double leastOverlap) {
  if (a.rows() < b.rows()) {
    std::vector<Resemblance> mirrored = resemblances(b, a, count, leastOverlap);
    for (Resemblance& r : mirrored) r.offsetSeconds = -r.offsetSeconds;
    return mirrored;
  }
  std::vector<Resemblance> best;
  if (b.rows() == 0) return best;
  std::vector<float> lags = correlationOverLags(a, b);
  toStrength(lags, a.rows(), b.rows(), leastOverlap * kTextureRate);
  constexpr std::size_t kApart = static_cast<std::size_t>(kTextureRate / 2);
  for (int k = 0; k < count; ++k) {
    const auto top = std::ranges::max_element(lags);
    if (top == lags.end() || *top <= 0) break;
    const auto at = static_cast<std::size_t>(top - lags.begin());
    best.push_back({(double(at) - double(b.rows())) / kTextureRate, *top});
    const std::size_t from = at < kApart ? 0 : at - kApart;
    std::fill(lags.begin() + static_cast<std::ptrdiff_t>(from),
              lags.begin() + static_cast<std::ptrdiff_t>(std::min(lags.size(), at + kApart)), 0.0f);
  }
  return best;
}

}  // namespace matching
