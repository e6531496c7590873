#pragma once

#include <array>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "bench/truth.h"
#include "place/placement.h"

namespace events {

/// Only what is placed with at least so much confidence is counted.
inline constexpr std::array<double, 5> kLimits = {0, 0.5, 0.7, 0.9, 0.99};

struct RightOf {
  int right = 0, all = 0;
  void add(bool good) { right += good, ++all; }
};

/// What one way of placing came to, summed over sets. Pairs are of different devices.
struct Score {
  int sets = 0, recordings = 0;
  double hours = 0;   // of sound
  RightOf pairs;      // that belong together, and those of them that stand right to each other
  RightOf clear;      // those of them that hear 10 s or more at 5 dB or better
  RightOf joined;     // all that hang together by such pairs, if over third recordings
  int wrong = 0;      // pairs together at a wrong place, strangers included
  int strangers = 0;  // pairs together that are of two events
  int misplaced = 0;  // recordings that stand wrong against most of their group
  std::vector<double> errors;       // seconds, in the middle of the overlap
  std::vector<double> driftErrors;  // parts in a million, where ten minutes or more overlap

  struct AtLimit {
    int right = 0, wrong = 0, misplaced = 0;
  };
  std::array<AtLimit, kLimits.size()> limits;  // both recordings of a pair given the limit or more
  std::array<RightOf, kLimits.size()> promised;  // recordings from this limit up to the next
  RightOf errorHeld;  // right recordings whose `error` is as large as what they are off, or larger

  double fingerprintSeconds = 0, voteSeconds = 0, placeSeconds = 0;  // of processor time

  void add(const Score& other);
};

Score scoreOf(const Set& set, const place::Placement& placement);

/// One line for every recording that stands wrong against some of its group, or alone although it
/// overlaps.
std::string list(const Set& set, const place::Placement& placement);

double quantile(std::vector<double> values, double q);

}  // namespace events
