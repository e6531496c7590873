#pragma once

#include <optional>

#include "matching/section_ends.h"
#include "matching/vote.h"

namespace matching {

/// estimateOffset for hits that stand at their frame difference instead of in a sorted list:
/// bit s of `places[i]` is a hit of section s with a difference of `begin` + i frames. The first
/// and the last kReachPlaces places must be empty. The pair's sentinel is understood. Pure.
std::optional<OffsetStats> estimatePlaces(Places places, int begin);

}  // namespace matching
