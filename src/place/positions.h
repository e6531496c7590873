#pragma once

#include <optional>
#include <span>
#include <vector>

#include "place/group.h"

namespace place {

/// Where the members of one group stand, all matches weighed together. By member index.
struct Positions {
  std::vector<double> seconds;       // from the earliest member; >= 0
  std::vector<double> errorSeconds;  // estimated
  /// What has to be added to `seconds` where every recording is stretched to the group's clock: its
  /// start then, for no position is a compromise any more.
  std::vector<double> oneClockShift;
  std::vector<std::optional<double>> driftPpm;  // against the clock that hears most of the others
};

/// Weighted least squares over all matches of the group, those that lie far off counting less. A
/// recording cannot be stretched, so its position is right at the middle of what it shares with
/// the others, where the largest error at its ends is smallest. Recordings of one device share
/// one clock.
Positions solvePositions(std::span<const align::Recording> recordings, std::span<const int> members,
                         std::span<const align::Match> matches);

}  // namespace place
