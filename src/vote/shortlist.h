#pragma once

#include <cstddef>
#include <vector>

#include "vote/vote.h"

namespace vote {

/// The votes that are worth remembering of a whole comparison, so that memory grows with the number
/// of recordings and not with the number of pairs: all accepted ones, and of every recording the
/// `perFile` most significant others. Which those are does not depend on the order of adding,
/// except among equals.
class Shortlist {
 public:
  explicit Shortlist(std::size_t files, std::size_t perFile = 40)
      : files_(files), perFile_(perFile), room_(2 * files * perFile) {}

  /// Votes that say nothing (no candidate, no peak) are not kept.
  void add(PairVote vote);

  /// What was kept, in the order of adding. The list is empty afterwards.
  std::vector<PairVote> take();

 private:
  void shorten();

  std::size_t files_, perFile_;
  std::size_t room_;  // so many votes before the next shortening
  std::vector<PairVote> votes_;
};

}  // namespace vote
