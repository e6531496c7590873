#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "vote/hit.h"

namespace vote {

/// The time differences that a vote may choose from: of every run of deltas that follow one
/// another without a gap the greatest, but never the greatest delta of all.
class CandidateSet {
 public:
  /// `hits` are one pair's; the last one gives no delta. Time and memory are linear in the hits
  /// and in the range of their deltas (a bit for each).
  explicit CandidateSet(std::span<const HitCode> hits);

  /// Ascending.
  const std::vector<int>& deltas() const { return deltas_; }

  /// How many candidates are less than `delta`: the index of the first that is not. Constant time.
  std::size_t below(int delta) const;

 private:
  void fill(std::span<const HitCode> hits, int top);
  void keepEndsOfRuns(int top);
  void countUp();

  int base_ = 0;                      // the delta of bit 0
  std::vector<std::uint64_t> bits_;   // one for each delta from base_ on
  std::vector<std::uint32_t> ranks_;  // candidates before each word of bits_
  std::vector<int> deltas_;
};

}  // namespace vote
