#pragma once

#include <functional>
#include <map>
#include <optional>
#include <set>
#include <span>
#include <utility>
#include <vector>

#include "place/growing_groups.h"
#include "place/implied.h"
#include "place/odds.h"

namespace place {

/// One offset of a match, and the log odds of its being right against none of the match's.
struct Offset {
  align::Alignment alignment;
  double logOdds;
  int match;  // index of the match
};

/// How two groups lie over each other, and the log odds of that against all other ways in which
/// they could, not at all included.
struct Join {
  align::Alignment by;
  double logOdds;
};

/// All that speaks for laying groups over each other while they grow. A way two groups may lie has
/// the sum of the log odds of all offsets that agree with it, and of the silence of pairs that it
/// would let overlap.
class Bridges {
 public:
  /// `heard` says which pairs were listened to; all must outlive it.
  Bridges(std::span<const align::Recording> recordings, std::span<const align::Match> matches,
          const Heard& heard);

  /// The likeliest join of all, if any is likelier than that.
  std::optional<Join> likeliest(double leastLogOdds);

  /// Lays the two groups over each other.
  void join(const Join& join);

  /// What is left between groups and likelier than that, likeliest first.
  std::vector<Join> open(double leastLogOdds);

  /// The log odds of a file's place in its group, against all others that its own matches allow.
  double ofPlace(int file);

  /// What the silence of all pairs says that the alignment would let overlap: below 0, and very
  /// much so if two files of one device would.
  double ofSilence(const align::Alignment& by);

  GrowingGroups& groups() { return groups_; }

 private:
  using Groups = std::pair<int, int>;  // ascending
  struct Shift {
    double seconds, logOdds;
    const align::Alignment* by;
    bool tested = false;  // whether devices and silence count already
  };
  struct Bridge {
    std::vector<int> matches;  // indices
    Join join{{}, 0};
    bool tested = false;  // whether the devices and what would overlap were looked at
  };

  using Forward = std::function<bool(const align::Alignment&)>;
  std::vector<Shift> shifts(std::span<const int> matches, const Forward& forward);
  std::vector<Shift> shifts(const Groups& groups, const Bridge& bridge);
  void rank(const Groups& groups, Bridge& bridge);
  void test(const Groups& groups, Bridge& bridge);
  double move(const Join& join, int from);
  std::vector<double> waysRound(const Groups& groups, const Shift& shift);
  void keep(const Groups& groups, Bridge bridge);
  Bridge take(const Groups& groups);

  std::span<const align::Recording> recordings_;
  const Heard& heard_;
  Odds odds_;
  GrowingGroups groups_;
  std::vector<std::vector<Offset>> offsets_;   // by match
  std::set<std::pair<int, int>> matched_;      // files, ascending
  std::vector<std::vector<int>> matchesOf_;    // by file
  std::map<Groups, Bridge> bridges_;           // by group
  std::vector<std::set<int>> neighbours_;      // groups, by group
  std::set<std::pair<double, Groups>> order_;  // -log odds
};

}  // namespace place
