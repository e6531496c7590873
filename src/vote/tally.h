#pragma once

#include <algorithm>
#include <optional>

#include "vote/vote.h"

namespace vote {

inline constexpr int kReach = 4;  // hundredths; a hit says nothing about candidates farther off

/// What the hits of a pair say about one candidate delta.
struct Tally {
  int delta;
  int score = 0;
  int counted = 0;
  int sections = 0;
  int firstSection = 0;
  int lastSection = -1;

  /// Adds a hit of `section`, which lies `d0` hundredths from the candidate, and the two after it,
  /// `d1` and `d2` from it: hits that lie together weigh most. Sections must not decrease.
  void add(int section, int d0, int d1, int d2) {
    const int worstOfTwo = std::max(d0, d1);
    const int worstOfThree = std::max(worstOfTwo, d2);
    if (worstOfThree < 3) count(section, 3, 200);
    if (worstOfThree <= kReach) count(section, 3, 100);
    if (worstOfTwo <= kReach) count(section, 2, 30);
    if (d0 < 2) ++counted;
    if (d0 == 0) count(section, 1, 0);
  }

 private:
  void count(int section, int hits, int points) {
    counted += hits;
    score += points;
    if (section == lastSection) return;
    if (sections++ == 0) firstSection = section;
    lastSection = section;
  }
};

/// Chooses among the candidates of a pair, which come to it in ascending order.
class Election {
 public:
  /// The winner so far is replaced only by one ahead in sections, score and span at once.
  void hear(const Tally& tally);

  /// None when no candidate won.
  std::optional<OffsetStats> stats() const;

 private:
  std::optional<Tally> best_, most_;
  int span_ = 0, bestSpan_ = 0;
};

}  // namespace vote
