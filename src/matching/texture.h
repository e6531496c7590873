#pragma once

#include <Eigen/Core>
#include <span>
#include <vector>

namespace matching {

inline constexpr double kTextureRate = 31.25;  // frames per second
inline constexpr int kTextureBands = 16;

/// How the sound moves in each band: bands (rows) by frames (columns), level over the level around
/// it, limited, so that neither loudness nor a steady tone nor a single bump says much.
using Texture = Eigen::Array<float, kTextureBands, Eigen::Dynamic>;

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

}  // namespace matching
