#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "bench/events/sets.h"
#include "matching/placement.h"

namespace events {

inline constexpr double kRight = 0.1;  // seconds; farther off is a wrong place

/// Where a take's own clock stands at the middle of what it shares with another. Of a device that
/// is carried about it is the middle between the sound's earliest and latest arrival.
struct Truth {
  double overlap, offset;  // offset of b's start on a's clock, right at the overlap's middle
  double heard;            // seconds of the overlap in which both can hear something
};

Truth truthOf(const Set& set, std::size_t a, std::size_t b);

/// What one way of placing came to, summed over sets.
struct Score {
  int wanted = 0, found = 0;  // pairs that both hear 5 s or more, and those put together
  int clearWanted = 0,
      clearFound = 0;               // those of them that hear 10 s or more at 5 dB or better
  int misplaced = 0;                // recordings that stand wrong against most of their group
  int strangers = 0;                // pairs together that are of two events
  std::vector<double> errors;       // seconds, in the middle of the overlap
  std::vector<double> driftErrors;  // parts in a million, where ten minutes or more overlap
  std::map<int, std::pair<int, int>> calibration;  // tenth of confidence -> right, all
  double seconds = 0;

  void add(const Score& other);
};

Score scoreOf(const Set& set, const matching::Placement& placement);

/// Prints every recording that stands wrong against some of its group, or alone although it
/// overlaps.
void list(const Set& set, const matching::Placement& placement);

void print(const std::string& name, const Score& score);

}  // namespace events
