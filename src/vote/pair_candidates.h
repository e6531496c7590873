#pragma once

#include <span>
#include <vector>

#include "vote/vote.h"

namespace vote {

/// Supposed offsets of one pair.
struct PairCandidates {
  int first, second;            // file indices
  std::vector<double> offsets;  // seconds of second's start on first's clock, likeliest first
  double significance = 0;      // of the likeliest
};

/// How far the likeliest offset of a pair stands out from chance: the significance of its highest
/// peak, or its supporting sections where the vote accepted it.
double significanceOf(const PairVote& vote);

/// The pairs whose votes suggest something, most significant first. A vote's own choice comes
/// before its other peaks only where it was accepted.
std::vector<PairCandidates> candidatesOf(std::span<const PairVote> votes);

}  // namespace vote
