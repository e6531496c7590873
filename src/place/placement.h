#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "align/recording.h"
#include "vote/vote.h"

namespace place {

/// Where one recording stands in its group, and how sure and exact that is.
struct Placed {
  int file;
  double offsetSeconds;                // from the group's earliest member; >= 0
  double confidence;                   // 0 to 1; of those given 0.9, nine in ten are right
  std::optional<double> errorSeconds;  // estimated error of the offset; none if not measured
  std::optional<double> driftPpm;  // clock against the group's; none where the overlap is too short
  std::vector<int> matchedWith;    // files it was matched with, strongest first
  /// What is to be added to the offset once every recording is stretched to the group's clock.
  std::optional<double> oneClockShift = {};
};

struct PlacedGroup {
  std::vector<Placed> members;  // at least two, by offset then by file
};

/// A recording left alone: what was tried, in one plain sentence.
struct Alone {
  int file;
  std::string tried;
};

struct Placement {
  std::vector<PlacedGroup> groups;  // by size, then by first file
  std::vector<Alone> alone;         // by file
  std::vector<std::string> doubts;  // contradictory pairs dropped, repeated music: sentences
};

/// First form: connected components of the accepted pairs, offsets of the vote, positions from
/// the best-supported spanning tree; pairs that contradict it by more than 0.1 s are named.
Placement placeByVotes(std::span<const align::Recording> recordings,
                       std::span<const vote::PairVote> votes);

struct PlacementProgress {
  std::function<void(int done, int total)> step;  // may be empty; called from the calling thread
  std::function<bool()> cancelled;                // may be empty; polled between steps
};

/// Full form: votes give candidates, the sound decides. Deterministic: the order of threads
/// changes nothing. Memory: linear in the number of recordings. Hands on what the reader throws.
Placement placeBySound(std::span<const align::Recording> recordings,
                       std::span<const vote::PairVote> votes, const align::SoundReader& sound,
                       const PlacementProgress& progress = {});

}  // namespace place
