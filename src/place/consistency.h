#pragma once

#include <span>
#include <vector>

#include "align/matches.h"

namespace place {

/// How many third recordings, matched with both of a pair, give it the same offset, and how many
/// another one.
struct Confirmation {
  int agree = 0, contradict = 0;
};

/// For every match, by its best offset. `matches`: at most one of a pair.
std::vector<Confirmation> confirmations(std::span<const align::Recording> recordings,
                                        std::span<const align::Match> matches);

}  // namespace place
