#include <algorithm>
#include <cmath>

#include "align/line.h"

namespace align {
namespace {

constexpr float kClear = 12;          // height that unrelated sound never has
constexpr float kFaint = 8;           // ... and hardly ever, near where others have theirs
constexpr float kAlone = 1.5f;        // ... and so many times higher than the rest of its window
constexpr int kPeakWidth = 16;        // samples; what belongs to a peak
constexpr double kWay = 800;          // samples; sound comes 17 m in 50 ms, and both may be carried
constexpr float kExplained = 0.5f;    // of the window's peak; echoes reach more
constexpr double kMostOfThem = 0.85;  // explained by the line, they are all on it but for accidents
constexpr float kMostEach = 4.5f;     // evidence of one window

struct Peak {
  std::size_t window;
  double samples;
  float height;
};

// The windows' highest peaks where they stand alone.
std::vector<Peak> clearPeaks(std::span<const WindowCorrelation> windows) {
  std::vector<Peak> peaks;
  for (std::size_t w = 0; w < windows.size(); ++w) {
    const std::vector<float>& lags = windows[w].lags;
    const auto top = std::ranges::max_element(lags);
    if (top == lags.end() || *top < kClear) continue;
    float other = 0;
    for (auto i = lags.begin(); i != lags.end(); ++i)
      if (std::abs(i - top) > kPeakWidth) other = std::max(other, *i);
    if (*top >= kAlone * other)
      peaks.push_back({w, double(top - lags.begin()) - double(lags.size() / 2), *top});
  }
  return peaks;
}

// Those of the stretch of delays, no longer than anybody walks, that has most of them.
std::vector<Peak> densest(std::vector<Peak> peaks) {
  std::ranges::sort(peaks, {}, &Peak::samples);
  std::size_t from = 0, most = 0, best = 0;
  for (std::size_t to = 0; to < peaks.size(); ++to) {
    while (peaks[to].samples - peaks[from].samples > kWay) ++from;
    if (to + 1 - from > most) most = to + 1 - from, best = from;
  }
  return {peaks.begin() + std::ptrdiff_t(best), peaks.begin() + std::ptrdiff_t(best + most)};
}

// The highest point of a window within a stretch of delays.
Peak highestWithin(std::span<const WindowCorrelation> windows, std::size_t window, double least,
                   double most) {
  const std::vector<float>& lags = windows[window].lags;
  const auto middle = lags.begin() + std::ssize(lags) / 2;
  const auto top = std::max_element(middle + std::lround(least), middle + std::lround(most) + 1);
  return {window, double(top - middle), *top};
}

}  // namespace

DelayLine varyingOr(DelayLine straight, std::span<const WindowCorrelation> windows) {
  const std::vector<Peak> peaks = densest(clearPeaks(windows));
  const auto explained = std::ranges::count_if(peaks, [&](const Peak& peak) {
    return straight.heights[peak.window] >= kExplained * peak.height;
  });
  if (peaks.size() < 2 || double(explained) >= kMostOfThem * double(peaks.size())) return straight;
  DelayLine line;
  line.varies = true;
  const double least = peaks.front().samples, most = peaks.back().samples;
  line.delaySamples = (least + most) / 2;
  line.errorSamples = (most - least) / 2;
  for (std::size_t w = 0; w < windows.size(); ++w) {
    const Peak peak = highestWithin(windows, w, least, most);
    line.delays.push_back(peak.samples);
    line.heights.push_back(peak.height >= kFaint ? peak.height : 0);
  }
  line.evidence = kMostEach * double(peaks.size());
  return line;
}

}  // namespace align
