#pragma once

#include <span>
#include <vector>

#include "align/matches.h"
#include "align/recording.h"

namespace place {

/// Takes out and returns the matches that may be repetitions although they fit: they have only part
/// of what their recordings share with others, or one of those repeats with others, and where this
/// match would repeat the two hardly overlap.
std::vector<align::Match> takeAmbiguous(std::vector<align::Match>& matches,
                                        std::span<const align::Recording> recordings);

}  // namespace place
