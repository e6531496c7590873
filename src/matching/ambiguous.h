#pragma once

#include <span>
#include <vector>

#include "matching/matches.h"
#include "matching/recording.h"

namespace matching {

/// Takes out and returns the matches that may be repetitions although they fit at one offset only:
/// one of their recordings repeats with others, and where this one would repeat the two hardly
/// overlap.
std::vector<Match> takeAmbiguous(std::vector<Match>& matches,
                                 std::span<const Recording> recordings);

}  // namespace matching
