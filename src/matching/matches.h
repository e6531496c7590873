#pragma once

#include <optional>
#include <span>
#include <vector>

#include "matching/alignment.h"
#include "matching/placement.h"

namespace matching {

/// A pair of recordings that hear the same thing, as the sound itself says.
struct Match {
  Alignment best;
  std::vector<Alignment> rivals;  // other offsets at which the sound fits too: repeated music
};

/// Supposed offsets of one pair.
struct Suspicion {
  int first, second;            // file indices
  std::vector<double> offsets;  // seconds of second's start on first's clock, likeliest first
  double significance = 0;      // of the likeliest
};

/// The pairs whose votes suggest something, most significant first. A vote's own choice comes
/// before its other peaks only where it was accepted.
std::vector<Suspicion> suspicionsOf(std::span<const PairVote> votes);

/// Listens at every supposed offset and keeps the best that can be believed. Callable from any
/// thread.
std::optional<Match> examine(const Suspicion& suspicion, std::span<const Recording> recordings,
                             const SoundReader& sound);

}  // namespace matching
