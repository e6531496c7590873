#include "matching/correlate.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

#include "matching/fft.h"

namespace matching {
namespace {

using Index = Eigen::Index;

constexpr float kWhitening = 0.7f;                  // 1 would weigh every bin alike, noise included
constexpr float kEvening = 0.8f;                    // 1 would bring pauses to full level
constexpr double kLowEdge = 120, kHighEdge = 3700;  // Hz; hum below, the converter's edge above
constexpr std::size_t kTogether = 4;
constexpr int kBlock = 8;  // samples whose level is evened by one factor

// Hann window of that length, kept for the next call of the same thread.
const Eigen::ArrayXf& taper(Index count) {
  thread_local Eigen::ArrayXf window;
  if (window.size() != count) {
    const auto step = static_cast<float>(2 * std::numbers::pi / double(count));
    window =
        0.5f - 0.5f * (step * (Eigen::ArrayXf::LinSpaced(count, 0.5f, float(count) - 0.5f))).cos();
  }
  return window;
}

// Mean levels of blocks, then of what is around each block (50 ms on both sides).
Signals levelsAround(const Signals& x) {
  static const float kMemory = std::exp(-kBlock / (0.05f * kSampleRate));
  const Index blocks = x.cols() / kBlock;
  Signals levels(4, blocks);
  for (Index i = 0; i < blocks; ++i)
    levels.col(i) = x.middleCols<kBlock>(i * kBlock).abs().rowwise().mean();
  const Eigen::Array4f mean = levels.rowwise().mean() + 1e-9f;
  Signals around(4, blocks);
  Eigen::Array4f before = mean, after = mean;
  for (Index i = 0; i < blocks; ++i)
    around.col(i) = before = before * kMemory + levels.col(i) * (1 - kMemory);
  for (Index i = blocks; i-- > 0;) {
    after = after * kMemory + levels.col(i) * (1 - kMemory);
    around.col(i) = (around.col(i) + after) / 2 + 0.05f * mean;
  }
  return around;
}

// Evens the levels: every sample is divided by a power of the sound's level around it.
void evenLevel(Signals& x) {
  const Signals gains = (levelsAround(x).log() * -kEvening).exp();
  for (Index i = 0; i < gains.cols(); ++i)
    x.middleCols<kBlock>(i * kBlock).colwise() *= gains.col(i);
}

// Spectra of up to four pieces; where there are fewer, the last stands in for the rest.
Spectra spectraOf(std::span<const float* const> pieces, std::size_t length) {
  std::array<const float*, kTogether> from;
  for (std::size_t i = 0; i < from.size(); ++i) from[i] = pieces[std::min(i, pieces.size() - 1)];
  Signals signals(kTogether, static_cast<Index>(length));
  for (Index n = 0; n < signals.cols(); ++n)
    signals.col(n) << from[0][n], from[1][n], from[2][n], from[3][n];
  evenLevel(signals);
  signals.rowwise() *= taper(signals.cols()).transpose();
  return forward(signals);
}

// The cross spectra, their magnitudes brought nearer to each other.
Spectra whitenedProduct(const Spectra& x, const Spectra& y) {
  const Index bins = x.re.cols();
  const double hertzPerBin = kSampleRate / 2.0 / double(bins - 1);
  const auto low = static_cast<Index>(kLowEdge / hertzPerBin);
  const auto high = static_cast<Index>(kHighEdge / hertzPerBin);
  Spectra cross{x.re * y.re + x.im * y.im, x.im * y.re - x.re * y.im};
  Signals weight =
      ((cross.re.square() + cross.im.square() + 1e-20f).log() * (-kWhitening / 2)).exp();
  weight.leftCols(low) = 0;
  weight.rightCols(bins - high) = 0;
  cross.re *= weight;
  cross.im *= weight;
  return cross;
}

// The lags of `count` of the four functions, each over its own noise.
void addLags(const Signals& whole, std::size_t count, int maxLag,
             std::vector<std::vector<float>>& out) {
  const Eigen::Array4f noise = whole.square().rowwise().mean().sqrt();
  for (std::size_t i = 0; i < count; ++i) {
    const auto row = whole.row(Index(i));
    std::vector<float>& lags = out.emplace_back(std::size_t(2 * maxLag + 1), 0.0f);
    if (!(noise(Index(i)) > 0)) continue;
    Eigen::Map<Eigen::ArrayXf> view(lags.data(), std::ssize(lags));
    view << row.tail(maxLag).transpose(), row.head(maxLag + 1).transpose();
    view /= noise(Index(i));
  }
}

}  // namespace

std::vector<std::vector<float>> correlate(std::span<const Pieces> pieces, int maxLag) {
  std::vector<std::vector<float>> lags;
  for (std::size_t at = 0; at < pieces.size(); at += kTogether) {
    const auto four = pieces.subspan(at, std::min(kTogether, pieces.size() - at));
    std::vector<const float*> a, b;
    for (const Pieces& pair : four) a.push_back(pair.a.data()), b.push_back(pair.b.data());
    const std::size_t length = four[0].a.size();
    addLags(inverse(whitenedProduct(spectraOf(a, length), spectraOf(b, length))), four.size(),
            maxLag, lags);
  }
  return lags;
}

std::vector<std::vector<float>> correlateWithSelf(std::span<const std::vector<float>> pieces,
                                                  int maxLag) {
  std::vector<std::vector<float>> lags;
  for (std::size_t at = 0; at < pieces.size(); at += kTogether) {
    const auto four = pieces.subspan(at, std::min(kTogether, pieces.size() - at));
    std::vector<const float*> samples;
    for (const auto& piece : four) samples.push_back(piece.data());
    const Spectra spectra = spectraOf(samples, four[0].size());
    addLags(inverse(whitenedProduct(spectra, spectra)), four.size(), maxLag, lags);
  }
  return lags;
}

}  // namespace matching
