#pragma once

#include <optional>
#include <vector>

#include "vote/hit.h"
#include "vote/vote.h"

namespace vote {

/// Votes on the offset of one pair by its hits (any order, duplicates count once); none when no
/// time difference gathers hits that lie together in several sections. Linear in the hits once
/// they are sorted. Pure.
std::optional<OffsetStats> estimateOffset(std::vector<HitCode> hits);

}  // namespace vote
