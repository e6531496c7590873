#pragma once

#include <span>
#include <vector>

#include "matching/group.h"
#include "matching/placement.h"

namespace matching {

/// The placement that the groups come to: positions, drifts, errors and confidence of all members,
/// and what was tried with the others. `partners`: how many others each file was held against.
Placement placementOf(const Grouping& grouping, std::span<const Recording> recordings,
                      std::span<const int> partners);

}  // namespace matching
