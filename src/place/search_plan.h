#pragma once

#include <span>
#include <utility>
#include <vector>

#include "place/offset_forest.h"
#include "place/placement.h"
#include "vote/pair_candidates.h"

namespace place {

/// The pairs whose sound is worth searching for a common part: those that would connect what is
/// not connected yet, the most promising first, as many as a budget allows that grows with the
/// length of all recordings, not with the number of pairs. `matchCount`: sure matches per file.
std::vector<std::pair<int, int>> searchPlan(std::span<const align::Recording> recordings,
                                            std::span<const vote::PairCandidates> candidates,
                                            OffsetForest& connected,
                                            std::span<const int> matchCount);

}  // namespace place
