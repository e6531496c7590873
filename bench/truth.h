#pragma once

#include "bench/events/sets.h"

namespace events {

inline constexpr double kRight = 0.1;  // seconds; farther off is a wrong place

/// Where a take's own clock stands at the middle of what it shares with another. Of a device that
/// is carried about it is the middle between the sound's earliest and latest arrival.
struct Truth {
  double overlap, offset;  // offset of b's start on a's clock, right at the overlap's middle
  double heard;            // seconds of the overlap in which both can hear something
};

Truth truthOf(const Set& set, std::size_t a, std::size_t b);

/// Whether two takes hear enough of the same to be put together: 5 s, or four fifths of a clip
/// that is shorter than that allows.
bool belongTogether(const Set& set, std::size_t a, std::size_t b);

/// Whether recordings that stand so far off stand right. Those that do not meet are placed by
/// others, whose clocks add up over the time between.
bool isRight(double errorSeconds, const Truth& truth);

}  // namespace events
