#include "align/alignment.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace align {
namespace {

constexpr double kPeakWidth = 16;   // samples; what belongs to the peak on the line
constexpr double kLongEnough = 20;  // seconds of overlap past which more says little

float median(std::vector<float>& values) {
  std::ranges::nth_element(values, values.begin() + std::ssize(values) / 2);
  return values[values.size() / 2];
}

// The highest value away from the line: what else the window could mean.
float highestElsewhere(const WindowCorrelation& window, double delay) {
  const double line = double(window.lags.size() / 2) + delay;
  float highest = 1;
  for (std::size_t i = 0; i < window.lags.size(); ++i)
    if (std::abs(double(i) - line) > kPeakWidth) highest = std::max(highest, window.lags[i]);
  return highest;
}

}  // namespace

void summarise(Alignment& alignment, const DelayLine& line,
               std::span<const WindowCorrelation> windows) {
  std::vector<float> heights, distinctions;
  double from = 1e9, to = -1e9;
  for (std::size_t i = 0; i < windows.size(); ++i) {
    if (line.heights[i] < kSupport) continue;
    const double at = windows[i].atSeconds;
    heights.push_back(line.heights[i]);
    distinctions.push_back(line.heights[i] / highestElsewhere(windows[i], line.delays[i]));
    from = std::min(from, at);
    to = std::max(to, at);
  }
  alignment.varies = line.varies;
  alignment.evidence = line.evidence;
  alignment.windows = static_cast<int>(windows.size());
  alignment.support = static_cast<int>(heights.size());
  if (heights.empty()) return;
  alignment.strength = median(heights);
  alignment.distinct = median(distinctions);
  alignment.spreadSeconds = to - from;
}

// The height that windows would need to say as much if rooms did not spread their sound.
void summarise(Alignment& a, const Evidence& evidence, std::size_t windows) {
  a.logOdds = evidence.logOdds;
  a.windows = a.support = static_cast<int>(windows);
  a.strength = std::sqrt(2 * std::max(0.0, a.logOdds) / double(windows));
  a.evidence = a.logOdds;
  a.distinct = 1.2;
  a.spreadSeconds = a.overlapSeconds;
  a.varies = false;
}

bool believed(const Alignment& a) {
  if (a.logOdds >= kBeyondChance) return true;
  if (a.support < 3 || a.spreadSeconds < 1.5) return false;
  const bool clear = (a.strength >= 15 && a.distinct >= 1.8) ||  // few such windows are enough
                     (a.strength >= 25 && a.support * 2 >= a.windows);  // echoes beside the peak
  if (a.varies)
    return (clear || nearlyEverywhere(a)) && a.support >= 4 && a.support * 10 >= 3 * a.windows;
  return clear || (a.support >= 4 && a.support * 10 >= 3 * a.windows && a.evidence >= 14 &&
                   a.strength >= 6.5 && a.distinct >= 1.2);
}

bool nearlyEverywhere(const Alignment& a) { return a.support * 4 >= a.windows * 3; }

Alignment mirrored(Alignment a) {
  std::swap(a.first, a.second);
  a.offsetSeconds = -a.offsetSeconds;
  a.driftPpm = -a.driftPpm;
  return a;
}

bool sameOffset(const Alignment& a, const Alignment& b) {
  return std::abs(a.offsetSeconds - b.offsetSeconds) <
         offsetTolerance(std::max(a.overlapSeconds, b.overlapSeconds)) +
             std::max(a.errorSeconds, b.errorSeconds);
}

double weightOf(const Alignment& a) {
  const double fraction = double(a.support) / std::max(1, a.windows);
  const double seconds = std::min(a.overlapSeconds, kLongEnough);
  return a.strength * a.strength * fraction * fraction * std::sqrt(seconds);
}

}  // namespace align
