#pragma once

#include <array>
#include <cstdint>

namespace timeline {

/// An exact rate: `units` in `seconds` seconds, such as 30000 frames in 1001 seconds. Sample rates
/// and milliseconds are rates too (48000/1, 1000/1).
struct FrameRate {
  std::int64_t units, seconds;
  bool operator==(const FrameRate&) const = default;
};

/// The rates that sequences can have, as people write them.
inline constexpr std::array kUsualRates = {23.976, 24.0, 25.0, 29.97, 30.0, 50.0, 59.94, 60.0};

/// Whether `fps` is one of them.
bool isUsual(double fps);

/// The one nearest to `fps`. Of a slow or fast rate that is a whole part or multiple of one, that
/// one: 119.88 gives 59.94 and 15 gives 30.
double usualRate(double fps);

/// The exact rate that `fps` stands for: 29.97 means 30000/1001, 25 means 25/1. A number that is
/// near neither kind is taken to the thousandth; 0 and less give 25/1.
FrameRate exactRate(double fps);

/// Editors name a rate by a whole timebase and by whether it runs at 1000/1001 of that.
struct Timebase {
  std::int64_t framesPerSecond;
  bool ntsc;
};
Timebase timebaseOf(FrameRate rate);

/// The unit nearest to `seconds` (halves go up).
std::int64_t nearestUnit(double seconds, FrameRate rate);

/// How many whole units `seconds` holds; what is short of a whole one by rounding counts as whole.
std::int64_t wholeUnits(double seconds, FrameRate rate);

double toSeconds(std::int64_t units, FrameRate rate);

}  // namespace timeline
