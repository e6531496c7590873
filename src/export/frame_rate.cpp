#include "export/frame_rate.h"

#include <algorithm>
#include <cmath>

namespace timeline {
namespace {

// Less than a sample at any rate, and more than the rounding of the positions: a single precision
// 9.33 s is 9.3299999 s, and yet 9330 ms.
constexpr double kSlackSeconds = 1e-6;

double exactUnits(double seconds, FrameRate rate) {
  return seconds * static_cast<double>(rate.units) / static_cast<double>(rate.seconds);
}

bool near(double a, double b) { return std::abs(a - b) < 0.006; }  // 23.98 means 23.976...

double exactPerSecond(double usual) {
  const FrameRate rate = exactRate(usual);
  return static_cast<double>(rate.units) / static_cast<double>(rate.seconds);
}

double nearestUsual(double fps) {
  return *std::ranges::min_element(
      kUsualRates, {}, [&](double usual) { return std::abs(exactPerSecond(usual) - fps); });
}

}  // namespace

bool isUsual(double fps) {
  return std::ranges::any_of(kUsualRates,
                             [&](double usual) { return std::abs(fps - usual) < 5e-3; });
}

double usualRate(double fps) {
  constexpr double kSame = 3e-4;  // a third of what parts 29.97 from 30
  constexpr int kMostParts = 16;
  for (int parts = 1; parts <= kMostParts; ++parts)
    for (const double candidate : {fps / parts, fps * parts}) {
      const double usual = nearestUsual(candidate);
      if (std::abs(exactPerSecond(usual) / candidate - 1) < kSame) return usual;
    }
  return nearestUsual(fps);
}

FrameRate exactRate(double fps) {
  if (!(fps >= 1 && fps <= 1000)) return {25, 1};  // a slideshow's, a damaged header's, or none
  const double whole = std::ceil(fps - 0.006);
  const auto units = static_cast<std::int64_t>(whole);
  if (near(fps, whole)) return {units, 1};
  if (near(fps, whole * 1000 / 1001)) return {units * 1000, 1001};
  return {std::llround(fps * 1000), 1000};
}

Timebase timebaseOf(FrameRate rate) {
  const bool ntsc = rate.seconds == 1001;
  const auto whole = std::llround(ntsc ? rate.units / 1000.0 : exactUnits(1, rate));
  return {whole > 0 ? whole : 1, ntsc};
}

std::int64_t nearestUnit(double seconds, FrameRate rate) {
  return static_cast<std::int64_t>(std::floor(exactUnits(seconds + kSlackSeconds, rate) + 0.5));
}

std::int64_t wholeUnits(double seconds, FrameRate rate) {
  return static_cast<std::int64_t>(std::floor(exactUnits(seconds + kSlackSeconds, rate)));
}

double toSeconds(std::int64_t units, FrameRate rate) {
  return static_cast<double>(units) * static_cast<double>(rate.seconds) /
         static_cast<double>(rate.units);
}

}  // namespace timeline
