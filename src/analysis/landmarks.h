#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "analysis/peaks.h"

namespace analysis {

/// Two peaks close to each other: an anchor and a later target.
struct Landmark {
  std::uint32_t frame;     // of the anchor
  std::uint16_t distance;  // frames from the anchor to the target
  std::uint8_t anchorBin, targetBin;

  bool operator==(const Landmark&) const = default;
};

inline constexpr std::uint64_t kBinsUnit = 1'000'000;  // of a hash; the distance is the rest

/// What two recordings of one sound have in common. Different landmarks may share a hash, because
/// bins go beyond 100; matching only asks for equal ones. Never 0.
constexpr std::uint64_t hashOf(const Landmark& landmark) {
  return (std::uint64_t{landmark.targetBin} * 100 + landmark.anchorBin) * kBinsUnit +
         landmark.distance;
}

/// How far a target may be from its anchor; both limits are outside.
struct TargetZone {
  float bins = 31;
  float frames = 63;
};

/// Pairs every peak with later ones in its zone, at most nine, the latest first. `peaks`: the
/// latest first. Linear in the number of peaks.
std::vector<Landmark> pairPeaks(std::span<const Peak> peaks, const TargetZone& zone);

}  // namespace analysis
