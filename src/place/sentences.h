#pragma once

#include <span>
#include <string>
#include <vector>

#include "align/matches.h"
#include "place/links.h"
#include "place/placement.h"

namespace place {

/// Two recordings of one device that would run at the same time; the worse supported is removed.
struct Clash {
  int kept, removed;
  double seconds;  // how long both would run
};

std::string sentence(const Clash& clash, std::span<const align::Recording> recordings);

/// Says that `link` was left out because better supported matches give `knownOffset` seconds.
std::string contradiction(const Link& link, double knownOffset,
                          std::span<const align::Recording> recordings);

/// Says that the match, right as it may be, would lay recordings of one device over each other.
std::string deviceConflict(const align::Alignment& match,
                           std::span<const align::Recording> recordings);

/// Says that if the two fit, others would have to hear each other too, which do not.
std::string othersSilent(const align::Alignment& match,
                         std::span<const align::Recording> recordings);

/// Says that the two fit at several offsets alike, or at one that may be a repetition.
std::string repetition(const align::Match& match, std::span<const align::Recording> recordings);

/// For every recording what its votes came to, for those that end up alone.
std::vector<std::string> attempts(std::span<const align::Recording> recordings,
                                  std::span<const vote::PairVote> votes);

}  // namespace place
