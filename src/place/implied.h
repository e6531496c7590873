#pragma once

#include <functional>
#include <span>
#include <vector>

#include "place/growing_groups.h"

namespace place {

/// Two recordings of two groups that would hear the same if the groups were joined.
struct Implied {
  int first, second;     // file indices, first of the one group, second of the other
  double offsetSeconds;  // of second's start on first's clock
  double overlapSeconds;
};

/// All such pairs if the alignment, whose files stand in two groups, is right: those of different
/// devices that would share six seconds or more, longest first.
std::vector<Implied> impliedBy(const align::Alignment& bridge, GrowingGroups& groups,
                               std::span<const align::Recording> recordings);

/// Whether a pair of files, in any order, was listened to.
using Heard = std::function<bool(int, int)>;

/// The longest of those that nobody listened to yet, so that a few are known in all.
std::vector<Implied> untestedBy(const align::Alignment& bridge, GrowingGroups& groups,
                                std::span<const align::Recording> recordings, const Heard& heard);

}  // namespace place
