#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace vote {

/// The best-supported offset of one pair and what speaks for it.
struct OffsetStats {
  float bestOffset;      // seconds
  float sections;        // distinct sections that support it
  float mostHitsOffset;  // seconds; the candidate with the most counted hits
  float mostHits;        // its counted hits
  float bestHits;        // counted hits of the best candidate
  float span;            // last supporting section - first supporting section ("raspon")
  float score;
};

/// A time difference with many raw hits, whether the vote chose it or not.
struct DeltaPeak {
  double offsetSeconds;  // position of the second file's start on the first file's clock
  int hits;              // raw hits within 3 hundredths of it, duplicates included
  double significance;   // how far the hits exceed those around: (hits - expected) / sqrt(... + 1)
};

/// How the vote ended for a pair of files.
enum class Acceptance { none, strict, music };  // music: by the test for mode flag 1 only

/// One compared pair. `first` is the longer file. Offsets say where the second file's start lies
/// on the first file's clock: offset = t_first - t_second, in seconds.
struct PairVote {
  int first, second;
  std::optional<OffsetStats> stats;  // none when no candidate won
  double confidence = 0;             // "sigurnost"
  Acceptance accepted = Acceptance::none;
  int rawHits = 0;               // hits before duplicates are removed
  std::uint64_t eighthHit = 0;   // packed, by value; 0: too few to be voted on
  std::vector<DeltaPeak> peaks;  // at most 4, most significant first, 0.1 s apart or more
};

}  // namespace vote
