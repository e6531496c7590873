#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "matching/vote.h"

namespace matching {

inline constexpr int kReachPlaces = 2;  // hits as many frames from a candidate may speak for it

/// estimateOffset for hits that stand at their frame difference instead of in a sorted list:
/// bit s of `places[i]` is a hit of section s with a difference of `begin` + i frames. The first
/// and the last kReachPlaces places must be empty. The pair's sentinel is understood. Pure.
std::optional<OffsetStats> estimatePlaces(std::span<const std::uint32_t> places, int begin);

}  // namespace matching
