#pragma once

#include <span>
#include <string>
#include <vector>

#include "matching/links.h"
#include "matching/matches.h"
#include "matching/placement.h"

namespace matching {

/// Two recordings of one device that would run at the same time; the worse supported is removed.
struct Clash {
  int kept, removed;
  double seconds;  // how long both would run
};

std::string sentence(const Clash& clash, std::span<const Recording> recordings);

/// Says that `link` was left out because better supported matches give `knownOffset` seconds.
std::string contradiction(const Link& link, double knownOffset,
                          std::span<const Recording> recordings);

/// Says that the match, right as it may be, would lay recordings of one device over each other.
std::string deviceConflict(const Alignment& match, std::span<const Recording> recordings);

/// Says that the two fit at several offsets alike, or at one that may be a repetition.
std::string repetition(const Match& match, std::span<const Recording> recordings);

/// For every recording what its votes came to, for those that end up alone.
std::vector<std::string> attempts(std::span<const Recording> recordings,
                                  std::span<const PairVote> votes);

}  // namespace matching
