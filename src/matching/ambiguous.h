#pragma once

#include <span>
#include <vector>

#include "matching/matches.h"
#include "matching/recording.h"

namespace matching {

/// Takes out and returns the matches that may be repetitions although they fit: they have only part
/// of what their recordings share with others, or one of those repeats with others, and where this
/// match would repeat the two hardly overlap.
std::vector<Match> takeAmbiguous(std::vector<Match>& matches,
                                 std::span<const Recording> recordings);

}  // namespace matching
