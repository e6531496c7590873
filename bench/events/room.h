#pragma once

#include <vector>

#include "bench/events/performance.h"

namespace events {

/// How a room answers a handclap at one place in it.
struct Room {
  double reverbSeconds = 0.3;  // time for the tail to fall by 60 dB in the middle of the spectrum
  double directDb = 6;         // direct sound over all that follows it
};

/// The impulse response at kRate, the direct sound 1 at sample 0: mirror images of the source in
/// the walls of a box of the size that such a decay has, then a diffuse tail that builds up and
/// decays, the treble first. Every call draws another box and another place in it.
std::vector<float> roomResponse(const Room& room, Random& random);

/// `samples` convolved with `response` in place, cut to their own length.
void convolve(std::vector<float>& samples, const std::vector<float>& response);

}  // namespace events
