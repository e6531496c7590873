#pragma once

#include <span>
#include <vector>

#include "place/group.h"
#include "place/placement.h"

namespace place {

/// The placement that the groups come to: positions, drifts, errors and confidence of all members,
/// and what was tried with the others. `partners`: how many others each file was held against.
Placement placementOf(const Grouping& grouping, std::span<const align::Recording> recordings,
                      std::span<const int> partners);

}  // namespace place
