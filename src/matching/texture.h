#pragma once

#include <Eigen/Core>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace matching {

inline constexpr double kTextureRate = 31.25;  // frames per second
inline constexpr int kTextureBands = 16;

/// How the sound moves in each band: bands (rows) by frames (columns), level over the level around
/// it in steps of 1/60 standard deviation, limited to two deviations, so that neither loudness nor a
/// steady tone nor a single bump says much. An hour takes 1.8 MB.
using Texture = Eigen::Array<std::int8_t, kTextureBands, Eigen::Dynamic>;

/// The texture of `samples` (mono, 8000 Hz). Pure: callable from any thread.
Texture textureOf(std::span<const float> samples);

/// An offset at which two textures resemble each other.
struct Resemblance {
  double offsetSeconds;  // of b's start on a's clock
  double strength;       // in units of what chance gives
};

/// The `count` best offsets, best first, at least half a second apart, where at least
/// `leastOverlap` seconds are common. Cost: n log n in the lengths.
std::vector<Resemblance> resemblances(const Texture& a, const Texture& b, int count,
                                      double leastOverlap);

/// How much the textures resemble each other within a tenth of a second of that offset, in units of
/// what they do at other offsets around; above 3 is rarely chance. None where too little is common
/// to tell. Looks at a minute at the most.
std::optional<double> resemblanceAt(const Texture& a, const Texture& b, double offsetSeconds);

}  // namespace matching
