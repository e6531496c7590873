#pragma once

#include <span>
#include <string>
#include <vector>

#include "align/matches.h"
#include "place/implied.h"

namespace place {

/// A match that would join groups but was not used, and a sentence that says why.
struct Unused {
  align::Match match;
  std::string why;
};

/// Groups that the matches form, and what did not fit.
struct Grouping {
  std::vector<std::vector<int>> members;  // file indices of each group, ascending
  std::vector<double> position;           // per file, seconds on its group's clock; 0 if alone
  std::vector<int> groupOf;               // per file; -1 if alone
  std::vector<double> confidence;         // per file, 0 to 1: that it stands right
  std::vector<align::Match> kept;         // matches that agree with the positions
  std::vector<Unused> undecided;          // those that would join groups
  std::vector<Implied> untested;          // pairs that would decide more, which nobody tried
  std::vector<std::string> doubts;        // a sentence for every match that was not used
};

/// Joins recordings and groups, the likeliest first, as long as they are likely enough to be right.
/// Where a pair fits at several offsets, or several ways to lay two groups over each other are as
/// likely, nothing is joined. Two recordings of one device are never laid over each other. The
/// order of matches changes nothing. `heard`: which pairs were listened to, with success or
/// without.
Grouping formGroups(
    std::span<const align::Recording> recordings, std::vector<align::Match> matches,
    const Heard& heard = [](int, int) { return false; });

}  // namespace place
