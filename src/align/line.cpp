#include "align/line.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace align {
namespace {

constexpr double kSteepest = 150e-6 * 8000;    // samples per second; worse clocks are broken ones
constexpr int kReach = 3;                      // samples around the line in which a peak counts
constexpr float kChance = 3.5f, kMost = 8.0f;  // heights below say nothing, heights above no more
constexpr std::size_t kProposing = 12;         // windows whose peaks propose lines
constexpr int kPeaks = 3;                      // peaks of a window that may define a line

struct Peak {
  double at;       // seconds from the overlap's middle
  double samples;  // delay
  float height;
};

// Height at the best point within kReach of `delay`, and that point.
Peak peakNear(const WindowCorrelation& window, double delay) {
  const auto count = static_cast<int>(window.lags.size());
  const int middle = count / 2, centre = middle + static_cast<int>(std::lround(delay));
  int best = -1;
  for (int i = std::max(0, centre - kReach); i <= std::min(count - 1, centre + kReach); ++i)
    if (best < 0 || window.lags[std::size_t(i)] > window.lags[std::size_t(best)]) best = i;
  if (best < 0) return {window.atSeconds, delay, 0};
  double fine = 0;
  const float top = window.lags[std::size_t(best)];
  if (best > 0 && best + 1 < count) {
    const float left = window.lags[std::size_t(best) - 1],
                right = window.lags[std::size_t(best) + 1];
    const float bend = left - 2 * top + right;
    if (bend < 0 && top >= left && top >= right) fine = 0.5 * (left - right) / bend;
  }
  return {window.atSeconds, best - middle + fine, top};
}

std::vector<Peak> highestPeaks(const WindowCorrelation& window) {
  std::vector<Peak> peaks;
  std::vector<float> lags = window.lags;
  for (int k = 0; k < kPeaks; ++k) {
    const auto top = std::ranges::max_element(lags);
    if (*top < kChance) break;
    const auto at = top - lags.begin();
    peaks.push_back({window.atSeconds, double(at) - double(lags.size() / 2), *top});
    const auto from = std::max<std::ptrdiff_t>(0, at - 2 * kReach);
    const auto to = std::min<std::ptrdiff_t>(std::ssize(lags), at + 2 * kReach + 1);
    std::fill(lags.begin() + from, lags.begin() + to, 0.0f);
  }
  return peaks;
}

double evidenceOf(std::span<const WindowCorrelation> windows, double delay, double slope) {
  double sum = 0;
  for (const auto& window : windows) {
    const float height = peakNear(window, delay + slope * window.atSeconds).height;
    sum += std::clamp(height, kChance, kMost) - kChance;
  }
  return sum;
}

// Every pair of high peaks of two windows, and every peak alone, proposes a line. The first windows
// are spread over the whole overlap; a line that none of them has is not there.
DelayLine bestProposal(std::span<const WindowCorrelation> windows) {
  std::vector<Peak> peaks;
  for (const auto& window : windows.first(std::min(kProposing, windows.size())))
    for (const Peak& peak : highestPeaks(window)) peaks.push_back(peak);
  DelayLine best;
  const auto propose = [&](double delay, double slope) {
    const double evidence = evidenceOf(windows, delay, slope);
    if (evidence > best.evidence) best = {delay, slope, {}, evidence, 0, 0};
  };
  for (std::size_t i = 0; i < peaks.size(); ++i) {
    propose(peaks[i].samples, 0);
    for (std::size_t j = i + 1; j < peaks.size(); ++j) {
      const double seconds = peaks[j].at - peaks[i].at;
      const double apart = peaks[j].samples - peaks[i].samples;
      if (std::abs(seconds) < 0.5 || std::abs(apart) > kSteepest * std::abs(seconds) + 1) continue;
      const double slope = std::clamp(apart / seconds, -kSteepest, kSteepest);
      propose(peaks[i].samples - slope * peaks[i].at, slope);
    }
  }
  return best;
}

struct Sums {
  double w = 0, t = 0, d = 0, tt = 0, td = 0;
  void add(double weight, double at, double delay) {
    w += weight, t += weight * at, d += weight * delay;
    tt += weight * at * at, td += weight * at * delay;
  }
};

// Weighted least squares through the supporting windows' peaks.
void refine(std::span<const WindowCorrelation> windows, DelayLine& line) {
  std::vector<Peak> peaks;
  Sums sums;
  for (const auto& window : windows) {
    const Peak peak = peakNear(window, line.delaySamples + line.slope * window.atSeconds);
    if (peak.height < kSupport) continue;
    peaks.push_back(peak);
    sums.add(std::min(peak.height, 20.0f), peak.at, peak.samples);
  }
  if (peaks.size() < 2) return;
  const double middle = sums.t / sums.w, spread = sums.tt - sums.t * middle;
  const double slope =
      peaks.size() > 2 && spread > 0 ? (sums.td - sums.d * middle) / spread : line.slope;
  line.slope = std::clamp(slope, -kSteepest, kSteepest);
  line.delaySamples = sums.d / sums.w - line.slope * middle;
  double squares = 0;
  for (const Peak& p : peaks) {
    const double off = p.samples - line.delaySamples - line.slope * p.at;
    squares += std::min(p.height, 20.0f) * off * off;
  }
  const double variance = squares / sums.w + 0.02;  // interpolation itself is good to 0.15 samples
  const double count = double(peaks.size());
  line.errorSamples = std::sqrt(
      variance / count + (spread > 0 ? variance * middle * middle * sums.w / spread / count : 0));
  line.slopeError =
      peaks.size() > 2 && spread > 0 ? std::sqrt(variance * sums.w / spread / count) : 0;
}

}  // namespace

bool looksInverted(std::span<const WindowCorrelation> windows) {
  constexpr float kClearly = 1.1f;
  float up = 0, down = 0;
  for (const auto& window : windows) {
    const auto [least, most] = std::ranges::minmax(window.lags);
    up += most, down -= least;
  }
  return down > kClearly * up;
}

double heightOf(const DelayLine& line) {
  double sum = 0;
  for (const float height : line.heights) sum += std::max(height, kChance) - kChance;
  return sum;
}

DelayLine bestLine(std::span<const WindowCorrelation> windows) {
  DelayLine line = bestProposal(windows);
  refine(windows, line);
  refine(windows, line);
  line.evidence = evidenceOf(windows, line.delaySamples, line.slope);
  for (const auto& window : windows) {
    line.delays.push_back(line.delaySamples + line.slope * window.atSeconds);
    line.heights.push_back(peakNear(window, line.delays.back()).height);
  }
  return line;
}

}  // namespace align
