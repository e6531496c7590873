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

using Levels = Eigen::Array<float, kTextureBands, Eigen::Dynamic>;

const Eigen::RowVectorXf& taper() {
  static const Eigen::RowVectorXf window =
      (float(std::numbers::pi) / kWindow *
       (Eigen::RowVectorXf::LinSpaced(kWindow, 0.5f, kWindow - 0.5f).array()))
          .sin();
  return window;
}

// Four frames from frame `first` on, one in each row; past the end there is silence.
Signals fourFrames(std::span<const float> samples, Eigen::Index first) {
  Signals frames = Signals::Zero(4, kWindow);
  for (Eigen::Index i = 0; i < 4; ++i) {
    const auto from = std::min(samples.size(), static_cast<std::size_t>((first + i) * kHop));
    const auto count = std::min<std::size_t>(kWindow, samples.size() - from);
    frames.row(i).head(Eigen::Index(count)) =
        Eigen::Map<const Eigen::RowVectorXf>(samples.data() + from, Eigen::Index(count)).array();
  }
  frames.rowwise() *= taper().array();
  return frames;
}

Levels bandLevels(std::span<const float> samples) {
  static const auto edges = bandEdges();
  const auto frames = static_cast<Eigen::Index>(samples.size()) / kHop;
  Levels levels(kTextureBands, frames);
  for (Eigen::Index t = 0; t < frames; t += 4) {
    const Spectra spectra = forward(fourFrames(samples, t));
    const Eigen::Array4Xf powers = spectra.re.square() + spectra.im.square();
    const Eigen::Index count = std::min<Eigen::Index>(4, frames - t);
    for (std::size_t b = 0; b < kTextureBands; ++b)
      levels.block(Eigen::Index(b), t, 1, count) =
          powers.middleCols(edges[b], edges[b + 1] - edges[b])
              .rowwise()
              .sum()
              .transpose()
              .leftCols(count);
  }
  return levels;
}

// Running mean over kAround frames on both sides.
Levels meanAround(const Levels& x) {
  using Sums = Eigen::Array<double, kTextureBands, 1>;
  Levels mean(kTextureBands, x.cols());
  Sums sum = Sums::Zero();
  Eigen::Index from = 0, to = 0;
  for (Eigen::Index t = 0; t < x.cols(); ++t) {
    while (to < std::min(x.cols(), t + kAround + 1)) sum += x.col(to++).cast<double>();
    while (from < t - kAround) sum -= x.col(from++).cast<double>();
    mean.col(t) = (sum / double(to - from)).cast<float>();
  }
  return mean;
}

Texture movement(Levels levels) {
  constexpr float kStep = 60, kLimit = 2;  // steps per standard deviation; deviations
  const float floor = levels.mean() * 1e-5f + 1e-12f;
  levels = (levels + floor).log();
  levels -= meanAround(levels);
  levels /= (meanAround(levels.square()) + 0.05f).sqrt();
  return (kStep * levels.max(-kLimit).min(kLimit)).round().cast<std::int8_t>();
}

}  // namespace

Texture textureOf(std::span<const float> samples) {
  if (samples.size() < kHop) return Texture(kTextureBands, 0);
  return movement(bandLevels(samples));
}

}  // namespace matching
