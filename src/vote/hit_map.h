#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "vote/hash_index.h"
#include "vote/hit.h"
#include "vote/section_ends.h"
#include "vote/vote.h"

namespace vote {

/// The hits of one pair, by the frames between them. Nothing is sorted: the order of the packed
/// hits is that of sections and, within one, of differences, which can be read from here as well.
class HitMap {
 public:
  /// Replaces the hits by those of another pair; `x` is the longer recording. Keeps its memory.
  void fill(const IndexedFingerprint& x, const IndexedFingerprint& y);

  /// Duplicates and those of the rows of zeros included.
  int hits() const { return hits_; }

  /// The eighth of the packed hits by value, those of the files with these indices; there must be
  /// as many. `x` and `y` are those of `fill`.
  HitCode eighth(const IndexedFingerprint& x, const IndexedFingerprint& y, int first,
                 int second) const;

  /// What estimateOffset says of the packed hits.
  std::optional<OffsetStats> estimate() const;

  /// What strongestPeaks says of the packed hits. To be asked once.
  std::vector<DeltaPeak> peaks(int fillers);

 private:
  std::vector<CommonHash> room_;
  std::span<const CommonHash> common_;  // within it
  int begin_ = 0;                       // frame difference of the first place of both lists
  int hits_ = 0;
  std::vector<std::uint32_t> sections_;        // a bit for each section that has a hit
  std::vector<int> counts_;                    // hits, duplicates included
  std::array<int, kSectionBits> inSection_{};  // hits of each section
};

}  // namespace vote
