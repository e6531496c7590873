#pragma once

#include <optional>

#include "vote/section_ends.h"
#include "vote/vote.h"

namespace vote {

/// estimateOffset for hits that stand at their frame difference instead of in a sorted list:
/// bit s of `places[i]` is a hit of section s with a difference of `begin` + i frames. The first
/// and the last kReachPlaces places must be empty. The pair's sentinel is understood. Pure.
std::optional<OffsetStats> estimatePlaces(Places places, int begin);

}  // namespace vote
