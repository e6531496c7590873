#pragma once

#include <optional>
#include <vector>

#include "align/subband_envelope.h"

namespace align {

/// An offset at which two envelopes resemble each other.
struct Resemblance {
  double offsetSeconds;  // of b's start on a's clock
  double strength;       // in units of what chance gives
};

/// The `count` best offsets, best first, at least half a second apart, where at least
/// `leastOverlap` seconds are common. Cost: n log n in the lengths.
std::vector<Resemblance> resemblances(const Envelope& a, const Envelope& b, int count,
                                      double leastOverlap);

/// How much the envelopes resemble each other within a tenth of a second of that offset, in units
/// of what they do at other offsets around; above 3 is rarely chance. None where too little is
/// common to tell. Looks at 40 s at the most in the middle, and as many where both hear more than
/// steady noise.
std::optional<double> resemblanceAt(const Envelope& a, const Envelope& b, double offsetSeconds);

}  // namespace align
