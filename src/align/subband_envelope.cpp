#include "align/subband_envelope.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <utility>

#include "align/correlate.h"
#include "align/fft.h"

namespace align {
namespace {

constexpr int kHop = static_cast<int>(kSampleRate / kEnvelopeRate);
constexpr int kWindow = 2 * kHop;
constexpr double kLow = 150, kHigh = 3700;  // Hz
constexpr int kAround = 25;                 // frames on each side that give the level around one
constexpr float kStep = 60, kLimit = 2;     // steps per standard deviation; deviations
constexpr float kSteadyWeight = 0.5f;       // faint sound below steady noise is still something
constexpr float kSteadyNoise = 0.3f;  // its levels' variance is 0.20 to 0.28 whatever its colour

std::array<int, kEnvelopeBands + 1> bandEdges() {
  std::array<int, kEnvelopeBands + 1> edges{};
  for (int b = 0; b <= kEnvelopeBands; ++b) {
    const double hertz = kLow * std::pow(kHigh / kLow, double(b) / kEnvelopeBands);
    edges[static_cast<std::size_t>(b)] = static_cast<int>(hertz * kWindow / kSampleRate + 0.5);
  }
  for (std::size_t b = 1; b < edges.size(); ++b) edges[b] = std::max(edges[b], edges[b - 1] + 1);
  return edges;
}

using Levels = Eigen::Array<float, kEnvelopeBands, Eigen::Dynamic>;
using Weights = Eigen::Array<float, 1, Eigen::Dynamic>;

const Eigen::RowVectorXf& taper() {
  static const Eigen::RowVectorXf window =
      (float(std::numbers::pi) / kWindow *
       (Eigen::RowVectorXf::LinSpaced(kWindow, 0.5f, kWindow - 0.5f).array()))
          .sin();
  return window;
}

// Four frames from frame `first` on, one in each row; past the end there is silence.
void fillFrames(std::span<const float> samples, Eigen::Index first, Signals& frames) {
  std::array<const float*, 4> from;
  std::array<float, 4 * kWindow> padded;
  for (std::size_t i = 0; i < from.size(); ++i) {
    const std::size_t start = (std::size_t(first) + i) * kHop;
    from[i] = samples.data() + start;
    if (start + kWindow <= samples.size()) continue;
    float* const copy = padded.data() + i * kWindow;
    const auto rest = samples.subspan(std::min(samples.size(), start));
    std::fill(std::ranges::copy(rest, copy).out, copy + kWindow, 0.0f);
    from[i] = copy;
  }
  for (Eigen::Index n = 0; n < kWindow; ++n)
    frames.col(n) << from[0][n], from[1][n], from[2][n], from[3][n];
  frames.rowwise() *= taper().array();
}

Levels bandLevels(std::span<const float> samples) {
  static const auto edges = bandEdges();
  const auto frames = static_cast<Eigen::Index>(samples.size()) / kHop;
  Levels levels(kEnvelopeBands, frames);
  Signals four(4, kWindow), powers;
  Spectra spectra;
  for (Eigen::Index t = 0; t < frames; t += 4) {
    fillFrames(samples, t, four);
    spectra = forward(four, std::move(spectra));
    powers = spectra.re.square() + spectra.im.square();
    const Eigen::Index count = std::min<Eigen::Index>(4, frames - t);
    for (std::size_t b = 0; b < kEnvelopeBands; ++b)
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
  using Sums = Eigen::Array<double, kEnvelopeBands, 1>;
  Levels mean(kEnvelopeBands, x.cols());
  Sums sum = Sums::Zero();
  Eigen::Index from = 0, to = 0;
  for (Eigen::Index t = 0; t < x.cols(); ++t) {
    while (to < std::min(x.cols(), t + kAround + 1)) sum += x.col(to++).cast<double>();
    while (from < t - kAround) sum -= x.col(from++).cast<double>();
    mean.col(t) = (sum / double(to - from)).cast<float>();
  }
  return mean;
}

Envelope movement(Levels levels) {
  const float floor = levels.mean() * 1e-5f + 1e-12f;
  levels = (levels + floor).log();
  levels -= meanAround(levels);
  const Levels variance = meanAround(levels.square());
  levels /= (variance + 0.05f).sqrt();
  levels = kStep * levels.max(-kLimit).min(kLimit);
  levels.rowwise() *= (variance.colwise().mean() > kSteadyNoise)
                          .select(1.0f, Weights::Constant(variance.cols(), kSteadyWeight));
  return levels.round().cast<std::int8_t>();
}

}  // namespace

Envelope envelopeOf(std::span<const float> samples) {
  if (samples.size() < kHop) return Envelope(kEnvelopeBands, 0);
  return movement(bandLevels(samples));
}

bool isActive(const Envelope& envelope, Eigen::Index first, Eigen::Index frames) {
  constexpr auto kSteadyMost = static_cast<std::int8_t>(kStep * kLimit * kSteadyWeight);
  const auto part = envelope.middleCols(first, frames);
  return (part > kSteadyMost || part < -kSteadyMost).any();
}

}  // namespace align
