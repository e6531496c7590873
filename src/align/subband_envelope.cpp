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
constexpr Eigen::Index kPieceFrames = 4096;  // read at once, 2 min; four are transformed together
constexpr double kLow = 150, kHigh = 3700;   // Hz
constexpr int kAround = 25;                  // frames on each side that give the level around one
constexpr float kStep = 60, kLimit = 2;      // steps per standard deviation; deviations
constexpr float kSteadyWeight = 0.5f;        // faint sound below steady noise is still something
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

const Eigen::RowVectorXf& taper() {
  static const Eigen::RowVectorXf window =
      (float(std::numbers::pi) / kWindow *
       (Eigen::RowVectorXf::LinSpaced(kWindow, 0.5f, kWindow - 0.5f).array()))
          .sin();
  return window;
}

// Four frames that begin at `samples`, one in each row.
void fillFrames(const float* samples, Signals& frames) {
  for (Eigen::Index n = 0; n < kWindow; ++n)
    frames.col(n) << samples[n], samples[n + kHop], samples[n + 2 * kHop], samples[n + 3 * kHop];
  frames.rowwise() *= taper().array();
}

Levels bandLevels(std::int64_t samples, const ReadSamples& read) {
  static const auto edges = bandEdges();
  const Eigen::Index frames = samples / kHop;
  Levels levels(kEnvelopeBands, frames);
  Signals four(4, kWindow), powers;
  Spectra spectra;
  std::vector<float> piece;
  for (Eigen::Index t = 0; t < frames; t += 4) {
    if (t % kPieceFrames == 0)
      piece = read(t * kHop, (std::min(kPieceFrames, frames - t + 3) + 1) * kHop);
    fillFrames(piece.data() + t % kPieceFrames * kHop, four);
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

using Column = Eigen::Array<float, kEnvelopeBands, 1>;

// Goes along the columns that `column` gives, each asked for once, and tells `use` of each in turn
// the mean of those within kAround of it. What `column` reads may be changed once it was told of.
template <class Give, class Use>
void forEachMeanAround(Eigen::Index columns, const Give& column, const Use& use) {
  using Sums = Eigen::Array<double, kEnvelopeBands, 1>;
  std::array<Sums, 64> held;
  static_assert(held.size() >= 2 * kAround + 2);
  const auto place = [&](Eigen::Index t) -> Sums& { return held[std::size_t(t) % held.size()]; };
  Sums sum = Sums::Zero();
  Eigen::Index from = 0, to = 0;
  for (Eigen::Index t = 0; t < columns; ++t) {
    for (; to < std::min(columns, t + kAround + 1); ++to) {
      place(to) = column(to).template cast<double>();
      sum += place(to);
    }
    for (; from < t - kAround; ++from) sum -= place(from);
    use(t, Column((sum / double(to - from)).template cast<float>()));
  }
}

// Works in the room of `levels`, which of a long recording is all that there is room for.
Envelope movement(Levels levels) {
  const float floor = levels.mean() * 1e-5f + 1e-12f;
  levels = (levels + floor).log();
  const auto level = [&](Eigen::Index t) { return levels.col(t); };
  const auto square = [&](Eigen::Index t) -> Column { return levels.col(t).square(); };
  forEachMeanAround(levels.cols(), level,
                    [&](Eigen::Index t, const Column& mean) { levels.col(t) -= mean; });
  Envelope envelope(kEnvelopeBands, levels.cols());
  forEachMeanAround(levels.cols(), square, [&](Eigen::Index t, const Column& variance) {
    const Column even = levels.col(t) / (variance + 0.05f).sqrt();
    const float weight = variance.mean() > kSteadyNoise ? 1.0f : kSteadyWeight;
    envelope.col(t) =
        (weight * (kStep * even.max(-kLimit).min(kLimit))).round().cast<std::int8_t>();
  });
  return envelope;
}

}  // namespace

Envelope envelopeOf(std::int64_t samples, const ReadSamples& read) {
  if (samples < kHop) return Envelope(kEnvelopeBands, 0);
  return movement(bandLevels(samples, read));
}

Envelope envelopeOf(std::span<const float> samples) {
  return envelopeOf(std::ssize(samples), [&](std::int64_t first, std::int64_t count) {
    const auto rest = samples.subspan(static_cast<std::size_t>(first));
    std::vector<float> piece(rest.begin(), rest.begin() + std::min(std::ssize(rest), count));
    piece.resize(static_cast<std::size_t>(count));
    return piece;
  });
}

bool isActive(const Envelope& envelope, Eigen::Index first, Eigen::Index frames) {
  constexpr auto kSteadyMost = static_cast<std::int8_t>(kStep * kLimit * kSteadyWeight);
  const auto part = envelope.middleCols(first, frames);
  return (part > kSteadyMost || part < -kSteadyMost).any();
}

}  // namespace align
