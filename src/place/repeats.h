#pragma once

#include <span>
#include <vector>

#include "align/matches.h"
#include "place/growing_groups.h"

namespace place {

/// An offset stands out if the next best weighs less than this share of it.
inline constexpr double kClearly = 0.55;

/// Strength, as a share of what a recording's sound reaches with others, below which only music is
/// the same and not what was said over it.
inline constexpr double kPartOfIt = 0.6;

/// Takes out the matches at which only something repeated fits: those that fit at other offsets
/// too, and much worse than both their recordings fit others.
void dropMereRepeats(std::vector<align::Match>& matches);

/// Whether one of the match's offsets stands out from all its others and is possible as far as the
/// groups go; that one then leads.
bool standsOut(align::Match& match, GrowingGroups& groups);

/// Recordings that hear something repeated fit at several offsets alike. All such matches between
/// two groups vote together: where one shift of the groups stands out, it is taken. Joins what can
/// be joined, moves those matches from `open` to `kept`, leaves the others.
void joinByConsensus(std::vector<align::Match>& open, std::vector<align::Match>& kept,
                     GrowingGroups& groups);

}  // namespace place
