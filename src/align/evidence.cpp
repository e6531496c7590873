#include "align/evidence.h"

#include <Eigen/Core>
#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace align {
namespace {

using Row = Eigen::ArrayXf;
using Index = Eigen::Index;

constexpr double kSteepest = 150e-6 * 8000;  // samples per second; worse clocks are broken ones
constexpr double kStep = 2;  // samples that the ends move from one slope to the next
constexpr float kMost = 6;   // of one window: no bump decides
constexpr float kSpreads[] = {8, 32, 128, 512};         // samples over which rooms spread the sound
constexpr float kShares[] = {0.1f, 0.3f, 0.6f, 0.85f};  // of the power that is no chance, at most
constexpr float kDirectShare = 0.9f;

// The windows' sum along the line through delay 0, in units of chance.
Row stacked(std::span<const WindowCorrelation> windows, double slope) {
  const Index lags = std::ssize(windows[0].lags);
  Row sum = Row::Zero(lags);
  for (const WindowCorrelation& window : windows) {
    const auto shift = static_cast<Index>(std::lround(slope * window.atSeconds));
    const Index from = std::max<Index>(0, -shift), to = std::min(lags, lags - shift);
    if (from >= to) continue;
    const Eigen::Map<const Row> all(window.lags.data(), lags);
    sum.segment(from, to - from) += all.segment(from + shift, to - from).max(-kMost).min(kMost);
  }
  return sum / std::sqrt(float(windows.size()));
}

// For every delay the sum of `power` around it, weighted by exp(-distance / spread).
Row around(const Row& power, float spread) {
  const float memory = std::exp(-1 / spread);
  Row sum(power.size());
  float before = 0, after = 0;
  for (Index i = 0; i < power.size(); ++i) sum(i) = before = before * memory + power(i);
  for (Index i = power.size(); i-- > 0;) {
    sum(i) += after;
    after = (after + power(i)) * memory;
  }
  return sum;
}

// Sum of log(1 - share exp(-distance / spread)) over all distances but 0: what a model that expects
// more than chance pays for each delay at which there is no more.
float priceOf(float share, float spread, Index lags) {
  double sum = 0;
  for (Index i = 1; i < lags; ++i) sum += 2 * std::log1p(-share * std::exp(-double(i) / spread));
  return float(sum);
}

// Log likelihood ratio of every delay. A normal value of variance 1 / (1 - share) has, against one
// of variance 1, the ratio exp(share value^2 / 2) sqrt(1 - share).
Row logRatios(const Row& sum) {
  const Row power = sum.square();
  const Row direct = 0.5f * (kDirectShare * power + std::log1p(-kDirectShare));
  Row best = Row::Zero(sum.size());
  for (const float spread : kSpreads) {
    const Row spreadPower = around(power, spread) - power;
    for (const float share : kShares)
      best = best.max(0.5f * (share * spreadPower + priceOf(share, spread, sum.size())));
  }
  constexpr float kModels = float(std::size(kSpreads) * std::size(kShares) + 1);
  return best + direct.max(0) - std::log(kModels);
}

}  // namespace

Evidence evidenceOf(std::span<const WindowCorrelation> windows, double overlapSeconds) {
  Evidence evidence;
  if (windows.empty()) return evidence;
  const auto steps = static_cast<int>(std::ceil(kSteepest * overlapSeconds / 2 / kStep));
  double best = -1e9;
  for (int i = -steps; i <= steps; ++i) {
    const double slope = steps > 0 ? kSteepest * i / steps : 0;
    const Row ratios = logRatios(stacked(windows, slope));
    Index at = 0;
    const float top = ratios.maxCoeff(&at);
    if (top <= best) continue;
    best = top;
    evidence.slope = slope;
    evidence.delaySamples = double(at - ratios.size() / 2);
    const Row mass = (ratios - top).exp();
    const Row distance = Row::LinSpaced(ratios.size(), -float(at), float(ratios.size() - 1 - at));
    evidence.doubtSamples = std::sqrt((mass * distance.square()).sum() / mass.sum());
  }
  const double tried = double(windows[0].lags.size()) * (2 * steps + 1);
  evidence.logOdds = best - std::log(tried);
  return evidence;
}

}  // namespace align
