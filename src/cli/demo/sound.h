#pragma once

#include <random>
#include <vector>

namespace cli::demo {

inline constexpr int kRate = 48000;  // Hz, of all sound made here

using Sound = std::vector<float>;  // mono, full scale 1.0
using Random = std::minstd_rand;   // quick, and good enough for sound

/// An even draw from `low` to `high`.
inline double draw(Random& random, double low, double high) {
  return low + (high - low) * (static_cast<double>(random()) / Random::max());
}

inline std::size_t samplesIn(double seconds) {
  return static_cast<std::size_t>(seconds * kRate + 0.5);
}

}  // namespace cli::demo
