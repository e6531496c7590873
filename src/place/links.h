#pragma once

#include <span>
#include <vector>

#include "place/placement.h"

namespace place {

/// How much speaks for a vote: its supporting sections, of which few hits leave a part only.
/// Grows with both; 0 without stats.
double supportOf(const vote::PairVote& vote);

/// An accepted pair: the second file starts `offset` seconds after the first.
struct Link {
  int first, second;
  double offset;
  double support;

  bool touches(int file) const { return file == first || file == second; }
  int other(int file) const { return file == first ? second : first; }
};

/// The accepted of `votes`, best supported first; what files are heard in comes before where they
/// stand in the list, so that another order of files gives the same links.
std::vector<Link> acceptedLinks(std::span<const align::Recording> recordings,
                                std::span<const vote::PairVote> votes);

/// The chance that at least one of the links says the truth, 0 to 1; grows with every link and
/// with its support.
double confidenceOf(std::span<const Link> links);

}  // namespace place
