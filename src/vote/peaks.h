#pragma once

#include <span>
#include <vector>

#include "vote/hit.h"
#include "vote/vote.h"

namespace vote {

/// The time differences at which most more of one pair's `hits` (duplicates included) gather than
/// within seconds around: at most 4, most significant first, at least 0.1 s apart and of at least
/// 5 hits. `fillers` of the hits join the zero rows that every fingerprint has; they do not count.
/// Linear in the hits and in the range of their differences. Pure.
std::vector<DeltaPeak> strongestPeaks(std::span<const HitCode> hits, int fillers);

/// The same for hits counted by their frame difference: `counts[i]` of `begin` + i, without the
/// fillers. The first and the last are those of the hits farthest apart, or of fillers.
std::vector<DeltaPeak> peaksOfCounts(std::span<const int> counts, int begin);

}  // namespace vote
