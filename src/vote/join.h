#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "vote/hit.h"

namespace vote {

/// Rows of two fingerprints that share a hash.
struct RowPair {
  std::uint32_t x, y;
};

/// Merge join of two ascending hash lists, in order of x. Every row of X whose hash Y has meets
/// the first such row of Y and no other, so a run of equal hashes never becomes a cross product.
/// The result lives in `room`, which is kept from call to call to spare allocations. Linear.
std::span<const RowPair> mergeJoin(std::span<const std::uint64_t> hashesX,
                                   std::span<const std::uint64_t> hashesY,
                                   std::vector<RowPair>& room);

/// Sorts ascending; several times faster than std::sort on the hits of long recordings, whose
/// codes differ in few of their bits.
void sortHits(std::vector<HitCode>& hits);

}  // namespace vote
