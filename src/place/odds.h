#pragma once

#include <array>
#include <map>
#include <span>
#include <vector>

#include "align/matches.h"

namespace place {

/// What a match tells of whether one of its offsets is the right one.
inline constexpr std::size_t kFeatures = 14;
using Features = std::array<double, kFeatures>;

/// How likely the offsets are at which two recordings fit, from all that is known of a set. Three
/// things make an offset wrong: chance, something that is played twice, and an offset of the same
/// pair that is better. Nothing in a match alone tells them apart from faint sound, but what its
/// recordings reach with others does. The weights were fitted by bench/fit_odds.
class Odds {
 public:
  explicit Odds(std::span<const align::Match> matches);

  /// Log odds of every offset of the match, the best first, then its rivals, against none of them
  /// being right.
  std::vector<double> of(const align::Match& match) const;

  /// What silence of a pair that was listened to adds to the log odds of its overlapping so long.
  double ofSilence(int first, int second, double overlapSeconds) const;

  /// What those log odds are made of, of every offset.
  std::vector<Features> features(const align::Match& match) const;

  /// The strength that both files reach with others than each other; 0 if one does not.
  double strengthElsewhere(int first, int second) const;

 private:
  /// The most that a file reaches with one other, and with any other than that one.
  struct Most {
    double value = 0, next = 0;
    int with = -1;

    void add(double reached, int other);
    double without(int other) const { return other == with ? next : value; }
  };

  std::map<int, Most> strength_, distinct_;  // by file; copies do not count
  double typical_ = 1;                       // strength that files of the set reach
};

/// Every product of two of them (and of each with 1), of which the log odds are a weighted sum.
std::vector<double> products(const Features& features);

}  // namespace place
