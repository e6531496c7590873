#include "matching/verify.h"

#include <algorithm>
#include <cmath>

#include "matching/correlate.h"
#include "matching/direct.h"
#include "matching/line.h"

namespace matching {
namespace {

constexpr double kLeastOverlap = 1.5;     // seconds; below there is nothing to compare
constexpr double kReach = 0.1;            // seconds around the supposed offset
constexpr double kReachPerSecond = 5e-5;  // drift may add this much for every second of overlap
constexpr double kPeakWidth = 16;         // samples; what belongs to the peak on the line
constexpr double kGlimmer = 4;            // evidence of half the windows that is worth the others
constexpr int kFew = 6, kMany = 14;

struct Overlap {
  double from, to;  // on first's clock
  double length() const { return to - from; }
  double middle() const { return (from + to) / 2; }
};

Overlap overlapOf(const Pair& pair, double offset) {
  const double first = double(pair.firstSamples) / kSampleRate;
  const double second = double(pair.secondSamples) / kSampleRate;
  return {std::max(0.0, offset), std::min(first, offset + second)};
}

int windowLength(double overlap, Care care) {
  if (overlap < 5) return 8192;
  return care == Care::exact && overlap > 60 ? 32768 : 16384;
}

// Middles of the windows, evenly over the overlap; they overlap each other by half at most.
std::vector<double> windowMiddles(const Overlap& overlap, int length, Care care) {
  const double seconds = double(length) / kSampleRate;
  const double room = std::max(0.0, overlap.length() - 0.6 * seconds);
  const int fit = 1 + static_cast<int>(2 * room / seconds);
  const int count = std::min(fit, care == Care::glance ? kFew : kMany);
  std::vector<double> middles;
  for (int k = 0; k < count; ++k)
    middles.push_back(overlap.middle() + (count > 1 ? room * (double(k) / (count - 1) - 0.5) : 0));
  return middles;
}

// The windows of one verification: which samples of which file.
struct Windows {
  const Pair& pair;
  double offset;
  Overlap overlap;
  int length, maxLag;
  std::vector<double> middles;
  const SoundReader& sound;

  std::vector<float> firstAt(double middle) const { return piece(pair.first, middle); }
  std::vector<float> secondAt(double middle) const { return piece(pair.second, middle - offset); }

 private:
  std::vector<float> piece(int file, double middle) const {
    const auto centre = static_cast<std::int64_t>(std::llround(middle * kSampleRate));
    return sound(file, centre - length / 2, length);
  }
};

WindowCorrelation correlateAt(const Windows& windows, double middle) {
  return {middle - windows.overlap.middle(),
          correlate(windows.firstAt(middle), windows.secondAt(middle), windows.maxLag)};
}

// Every second window first: where none of those has a peak worth the name, or no two of them agree
// on anything, the others would not help.
std::vector<WindowCorrelation> correlateAll(const Windows& windows, Care care) {
  std::vector<WindowCorrelation> result;
  for (std::size_t i = 0; i < windows.middles.size(); i += 2)
    result.push_back(correlateAt(windows, windows.middles[i]));
  if (care == Care::glance && result.size() > 2 && bestLine(result).evidence < kGlimmer)
    return result;
  for (std::size_t i = 1; i < windows.middles.size(); i += 2)
    result.push_back(correlateAt(windows, windows.middles[i]));
  return result;
}

// Only pairs with echoes nearly as loud as the direct sound need the look at their own echoes.
DirectSound findDirect(const Windows& windows, std::span<const WindowCorrelation> correlations,
                       const DelayLine& line) {
  const auto peaks = responsePeaks(correlations, line);
  if (peaks.size() < 2) return {};
  std::vector<WindowCorrelation> first, second;
  for (const double middle : windows.middles) {
    const auto a = windows.firstAt(middle), b = windows.secondAt(middle);
    first.push_back({0, correlate(a, a, windows.maxLag)});
    second.push_back({0, correlate(b, b, windows.maxLag)});
  }
  return directSound(peaks, selfEchoes(first), selfEchoes(second));
}

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

void summarise(Alignment& alignment, const DelayLine& line,
               std::span<const WindowCorrelation> windows) {
  std::vector<float> heights, distinctions;
  double from = 1e9, to = -1e9;
  for (std::size_t i = 0; i < windows.size(); ++i) {
    if (line.heights[i] < kSupport) continue;
    const double at = windows[i].atSeconds;
    heights.push_back(line.heights[i]);
    distinctions.push_back(line.heights[i] /
                           highestElsewhere(windows[i], line.delaySamples + line.slope * at));
    from = std::min(from, at);
    to = std::max(to, at);
  }
  alignment.windows = static_cast<int>(windows.size());
  alignment.support = static_cast<int>(heights.size());
  if (heights.empty()) return;
  alignment.strength = median(heights);
  alignment.distinct = median(distinctions);
  alignment.spreadSeconds = to - from;
}

double confidenceOf(const Alignment& a) {
  const double said =
      0.15 * a.evidence + 0.25 * std::min(a.strength, 20.0) + 1.5 * std::min(a.distinct, 3.0) - 5.5;
  return 1 / (1 + std::exp(-said));
}

}  // namespace

Alignment verify(const Pair& pair, double offsetSeconds, const SoundReader& sound, Care care) {
  const double offset = std::round(offsetSeconds * kSampleRate) / kSampleRate;
  const Overlap overlap = overlapOf(pair, offset);
  Alignment alignment{.first = pair.first, .second = pair.second, .offsetSeconds = offset};
  alignment.overlapSeconds = std::max(0.0, overlap.length());
  if (overlap.length() < kLeastOverlap) return alignment;
  const int length = windowLength(overlap.length(), care);
  const double reach = std::min(0.5, kReach + kReachPerSecond * overlap.length());
  const int maxLag = std::min(length / 4, static_cast<int>(reach * kSampleRate));
  const Windows windows{pair, offset, overlap, length, maxLag, windowMiddles(overlap, length, care),
                        sound};
  const auto correlations = correlateAll(windows, care);
  const DelayLine line = bestLine(correlations);
  const DirectSound direct =
      care == Care::exact ? findDirect(windows, correlations, line) : DirectSound{};
  alignment.offsetSeconds = offset + (line.delaySamples + direct.shiftSamples) / kSampleRate;
  alignment.driftPpm = -line.slope / kSampleRate * 1e6;
  alignment.driftError = line.slopeError / kSampleRate * 1e6;
  alignment.errorSeconds = std::hypot(line.errorSamples, direct.doubtSamples) / kSampleRate;
  alignment.evidence = line.evidence;
  summarise(alignment, line, correlations);
  alignment.confidence = confidenceOf(alignment);
  return alignment;
}

bool believed(const Alignment& a) {
  if (a.support < 3 || a.spreadSeconds < 1.5) return false;
  const bool clear = (a.strength >= 15 && a.distinct >= 1.8) ||  // few such windows are enough
                     (a.strength >= 25 && a.support * 2 >= a.windows);  // echoes beside the peak
  return clear || (a.support >= 4 && a.support * 10 >= 3 * a.windows && a.evidence >= 14 &&
                   a.strength >= 6.5 && a.distinct >= 1.2);
}

}  // namespace matching
