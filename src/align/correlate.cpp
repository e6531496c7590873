#include "align/correlate.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <utility>

#include "align/fft.h"
#include "report/per_thread.h"

namespace align {
namespace {

using Index = Eigen::Index;

constexpr float kEvening = 0.8f;                    // 1 would bring pauses to full level
constexpr double kLowEdge = 120, kHighEdge = 3700;  // Hz; hum below, the converter's edge above
constexpr std::size_t kTogether = 4;
constexpr int kBlock = 8;  // samples whose level is evened by one factor

// Hann window of that length, kept for the next call of the same thread.
const Eigen::ArrayXf& taper(Index count) {
  static const report::PerThread<Eigen::ArrayXf> windows;
  Eigen::ArrayXf& window = *windows;
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

/// Memory of one four of correlations; every thread keeps its own for the next.
struct Work {
  Signals signals;
  Spectra x, y;
};

Work& work() {
  static const report::PerThread<Work> works;
  return *works;
}

// Spectra of up to four pieces; where there are fewer, the last stands in for the rest.
Spectra spectraOf(std::span<const float* const> pieces, std::size_t length, Spectra into) {
  std::array<const float*, kTogether> from;
  for (std::size_t i = 0; i < from.size(); ++i) from[i] = pieces[std::min(i, pieces.size() - 1)];
  Signals& signals = work().signals;
  signals.resize(kTogether, static_cast<Index>(length));
  for (Index n = 0; n < signals.cols(); ++n)
    signals.col(n) << from[0][n], from[1][n], from[2][n], from[3][n];
  evenLevel(signals);
  signals.rowwise() *= taper(signals.cols()).transpose();
  return forward(signals, std::move(into));
}

// Turns x into the cross spectra of x and y, the magnitudes brought nearer to each other.
void multiplyWhitened(Spectra& x, const Spectra& y) {
  const Index bins = x.re.cols();
  const double hertzPerBin = kSampleRate / 2.0 / double(bins - 1);
  const auto low = static_cast<Index>(kLowEdge / hertzPerBin);
  const auto high = static_cast<Index>(kHighEdge / hertzPerBin);
  for (Index k = low; k < high; ++k) {
    const Eigen::Array4f re = x.re.col(k) * y.re.col(k) + x.im.col(k) * y.im.col(k);
    const Eigen::Array4f im = x.im.col(k) * y.re.col(k) - x.re.col(k) * y.im.col(k);
    const Eigen::Array4f root = (re.square() + im.square() + 1e-20f).sqrt().sqrt();
    const Eigen::Array4f weight = (root * root.sqrt()).inverse();  // magnitude^-kWhitening
    x.re.col(k) = re * weight;
    x.im.col(k) = im * weight;
  }
  for (Signals* part : {&x.re, &x.im}) {
    part->leftCols(low) = 0;
    part->rightCols(bins - high) = 0;
  }
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
    Work& own = work();
    own.x = spectraOf(a, length, std::move(own.x));
    own.y = spectraOf(b, length, std::move(own.y));
    multiplyWhitened(own.x, own.y);
    own.signals = inverse(own.x, std::move(own.signals));
    addLags(own.signals, four.size(), maxLag, lags);
  }
  return lags;
}

std::vector<float> chanceOf(const Pieces& pieces, int maxLag) {
  Signals& signals = work().signals;
  signals.setZero(kTogether, std::ssize(pieces.a));
  signals.row(0) = Eigen::Map<const Eigen::ArrayXf>(pieces.a.data(), std::ssize(pieces.a));
  signals.row(1) = Eigen::Map<const Eigen::ArrayXf>(pieces.b.data(), std::ssize(pieces.b));
  evenLevel(signals);
  signals.rowwise() *= taper(signals.cols()).transpose();
  const Index blocks = signals.cols() / kBlock, reach = maxLag / kBlock + 1;
  Eigen::ArrayX2f powers(blocks, 2);
  for (Index i = 0; i < blocks; ++i)
    powers.row(i) =
        signals.middleCols<kBlock>(i * kBlock).topRows<2>().square().rowwise().sum().transpose();
  const float mean = powers.col(0).sum() * powers.col(1).sum() / float(blocks) + 1e-20f;
  std::vector<float> chance(std::size_t(2 * maxLag + 1));
  std::vector<float> coarse(std::size_t(2 * reach + 1));
  for (Index lag = -reach; lag <= reach; ++lag) {
    const Index from = std::max<Index>(0, lag), count = blocks - std::abs(lag);
    coarse[std::size_t(lag + reach)] =
        (powers.col(0).segment(from, count) * powers.col(1).segment(from - lag, count)).sum() /
        mean;
  }
  for (int lag = -maxLag; lag <= maxLag; ++lag) {
    const float at = float(lag) / kBlock + float(reach);
    const auto below = std::size_t(at);
    const float share = at - float(below);
    chance[std::size_t(lag + maxLag)] =
        std::sqrt(coarse[below] * (1 - share) + coarse[below + 1] * share + 1e-6f);
  }
  return chance;
}

std::vector<std::vector<float>> correlateWithSelf(std::span<const std::vector<float>> pieces,
                                                  int maxLag) {
  std::vector<std::vector<float>> lags;
  for (std::size_t at = 0; at < pieces.size(); at += kTogether) {
    const auto four = pieces.subspan(at, std::min(kTogether, pieces.size() - at));
    std::vector<const float*> samples;
    for (const auto& piece : four) samples.push_back(piece.data());
    Work& own = work();
    own.x = spectraOf(samples, four[0].size(), std::move(own.x));
    multiplyWhitened(own.x, own.x);
    own.signals = inverse(own.x, std::move(own.signals));
    addLags(own.signals, four.size(), maxLag, lags);
  }
  return lags;
}

}  // namespace align
