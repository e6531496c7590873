#pragma once

#include <span>
#include <vector>

#include "align/alignment.h"
#include "align/recording.h"
#include "place/offset_forest.h"

namespace place {

using align::kSameOffset;
using align::offsetTolerance;

/// Groups of recordings while they grow, and what may join them. At first every recording is a
/// group of its own.
class GrowingGroups {
 public:
  explicit GrowingGroups(std::span<const align::Recording> recordings);

  bool together(const align::Alignment& a) { return group(a.first) == group(a.second); }

  /// Whether the alignment gives its files, which are together, the places they have.
  bool agrees(const align::Alignment& a);

  /// Whether the alignment agrees, or lays two groups over each other without laying two files of
  /// one device over each other.
  bool suitsDevices(const align::Alignment& a);

  /// Lays the two groups over each other.
  void join(const align::Alignment& a);

  /// How far the second's group moves on the first's clock if the alignment is right.
  double shift(const align::Alignment& a) {
    return position(a.first) + a.offsetSeconds - position(a.second);
  }

  const std::vector<int>& membersWith(int file) { return members_[std::size_t(group(file))]; }
  double position(int file) { return forest_.position(file); }
  int group(int file) { return forest_.group(file); }

 private:
  double overlapOnDevice(int x, int y, double shift);

  std::span<const align::Recording> recordings_;
  OffsetForest forest_;
  std::vector<std::vector<int>> members_;  // by the group's root
};

}  // namespace place
