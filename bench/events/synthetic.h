#pragma once

#include <vector>

#include "bench/events/performance.h"

namespace events {

/// Syllables: voiced and hissing bursts through moving resonances, with pauses between phrases.
std::vector<float> syntheticSpeech(double seconds, Random& random);

/// Notes with decaying harmonics in changing chords and rhythm; never the same twice.
std::vector<float> syntheticMusic(double seconds, Random& random);

}  // namespace events
