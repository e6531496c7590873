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

// For every delay what the windows, laid over each other along a line through it, have in common:
// the products of each with every other but its neighbours, which share sound with it. Chance gives
// 1 with a deviation of the root of 2. One window alone, however loud, adds nothing.
Row commonPower(std::span<const WindowCorrelation> windows, double slope) {
  const Index lags = std::ssize(windows[0].lags);
  Row sum = Row::Zero(lags), own = Row::Zero(lags), before = Row::Zero(lags), here(lags);
  for (const WindowCorrelation& window : windows) {
    const auto shift = static_cast<Index>(std::lround(slope * window.atSeconds));
    const Index from = std::max<Index>(0, -shift), to = std::min(lags, lags - shift);
    here.setZero();
    if (from < to)
      here.segment(from, to - from) = Eigen::Map<const Row>(window.lags.data(), lags)
                                          .segment(from + shift, to - from)
                                          .max(-kMost)
                                          .min(kMost);
    sum += here;
    own += here * (here + 2 * before);
    before = here;
  }
  return (sum.square() - own) / float(windows.size()) + 1;
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

// The share of the delays that are independent of each other: sounds of few frequencies correlate
// alike at neighbouring delays.
float independence(std::span<const WindowCorrelation> windows) {
  constexpr Index kFar = 64;
  float power = 1e-9f;
  std::array<float, kFar> alike{};
  for (const WindowCorrelation& window : windows) {
    const Eigen::Map<const Row> lags(window.lags.data(), std::ssize(window.lags));
    power += lags.square().sum();
    for (Index far = 1; far < std::min(kFar, lags.size()); ++far)
      alike[std::size_t(far)] +=
          (lags.head(lags.size() - far) * lags.tail(lags.size() - far)).sum();
  }
  float others = 0;
  for (const float sum : alike) others += 2 * (sum / power) * (sum / power);
  return 1 / (1 + others);
}

/// What may be expected around the right delay: this share of the power at it is no chance, less
/// and less with distance.
struct Model {
  float spread, share;
  float price;  // what it pays over all delays, where there is no more than chance
};

// A normal value of variance 1 / (1 - share) has, against one of variance 1, the ratio
// exp(share value^2 / 2) sqrt(1 - share).
float priceOf(float share, float spread, Index lags) {
  double sum = 0;
  for (Index i = 1; i < lags; ++i) sum += 2 * std::log1p(-share * std::exp(-double(i) / spread));
  return float(sum);
}

std::vector<Model> models(Index lags) {
  std::vector<Model> all;
  for (const float spread : kSpreads)
    for (const float share : kShares) all.push_back({spread, share, priceOf(share, spread, lags)});
  return all;
}

/// Log likelihood ratio of every delay, and how far the sound is spread at the likeliest.
struct Ratios {
  Row log;
  Index at = 0;
  float top = 0, spread = 0;
};

Ratios ratiosOf(const Row& power, std::span<const Model> models, float independent) {
  Row best = Row::Zero(power.size());
  std::vector<Row> logs;
  float spread = 0;
  Row spreadPower;
  for (const Model& model : models) {
    if (model.spread != spread) spreadPower = around(power, spread = model.spread) - power;
    logs.push_back(0.5f * independent * (model.share * spreadPower + model.price));
    best = best.max(logs.back());
  }
  const Row direct = 0.5f * (kDirectShare * power + std::log1p(-kDirectShare));
  Ratios ratios{best + direct.max(0) - std::log(float(models.size() + 1))};
  ratios.top = ratios.log.maxCoeff(&ratios.at);
  for (std::size_t i = 0; i < models.size(); ++i)
    if (logs[i](ratios.at) == best(ratios.at)) ratios.spread = models[i].spread;
  return ratios;
}

// Standard deviation of the delay around the likeliest.
double deviation(const Ratios& ratios) {
  const Row mass = (ratios.log - ratios.top).exp();
  const Row distance = Row::LinSpaced(mass.size(), 0, float(mass.size() - 1)) - float(ratios.at);
  return std::sqrt((mass * distance.square()).sum() / mass.sum());
}

}  // namespace

Evidence evidenceOf(std::span<const WindowCorrelation> windows, double overlapSeconds) {
  Evidence evidence;
  if (windows.empty()) return evidence;
  std::vector<WindowCorrelation> inTime(windows.begin(), windows.end());
  std::ranges::sort(inTime, {}, &WindowCorrelation::atSeconds);
  const float independent = independence(inTime);
  const std::vector<Model> expected = models(std::ssize(windows[0].lags));
  const auto steps = static_cast<int>(std::ceil(kSteepest * overlapSeconds / 2 / kStep));
  double best = -1e9;
  for (int i = -steps; i <= steps; ++i) {
    const double slope = steps > 0 ? kSteepest * i / steps : 0;
    const Ratios ratios = ratiosOf(commonPower(inTime, slope), expected, independent);
    if (ratios.top <= best) continue;
    best = ratios.top;
    evidence.slope = slope;
    evidence.delaySamples = double(ratios.at - ratios.log.size() / 2);
    evidence.doubtSamples = std::hypot(deviation(ratios), ratios.spread);
  }
  const double tried = double(windows[0].lags.size()) * (2 * steps + 1);
  evidence.logOdds = best - std::log(tried);
  return evidence;
}

}  // namespace align
