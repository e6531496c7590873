#pragma once

#include <Eigen/Core>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "analysis/packed_fingerprint.h"

namespace vote {

/// A fingerprint by hash: a bit for each hash that it has, so that what two recordings have in
/// common comes from ANDing words, 64 hashes at a time.
struct IndexedFingerprint {
  /// The rows of one hash.
  struct Run {
    std::uint32_t firstRow;
    std::uint32_t frame : 24, section : 8;  // of the first row
  };

  std::vector<std::uint64_t> present;  // bits by hash; the same hash has the same bit in all files
  std::vector<std::uint64_t> filled;   // a bit for every word of `present` that is not 0
  std::vector<std::uint32_t> before;   // hashes in the words before each word of `present`
  std::vector<Run> runs;               // by the file's own hashes, then one at the end of the rows
  std::vector<std::int32_t> frames;    // by row
  std::int32_t frameEnd = 0;           // all frames are below
  int fillers = 0;                     // rows of zeros before all others
};

/// A hash that two files have: where their runs are.
struct CommonHash {
  std::uint32_t x, y;
};

/// All hashes that both files have, ascending. The result lives in `room`, which is kept from call
/// to call to spare allocations.
std::span<const CommonHash> commonHashes(const IndexedFingerprint& x, const IndexedFingerprint& y,
                                         std::vector<CommonHash>& room);

/// The rows of zeros that stand first in every fingerprint: frame 0, hash 0.
int leadingFillers(const analysis::PackedFingerprint& fingerprint);

/// For every file whether its fingerprint is as analysis makes them, of half a day at most, so that
/// it can be indexed. `durations` are seconds by file index. Works in parallel.
std::vector<char> indexable(std::span<const analysis::PackedFingerprint> fingerprints,
                            const Eigen::VectorXf& durations);

/// What becomes of a fingerprint when it is indexed.
enum class Indexed { kept, dropped };

/// The fingerprints of a run, indexed. Memory is linear in their rows.
class HashIndex {
 public:
  /// Files that are not `usable`, as `indexable` tells, are left out. Works in parallel.
  HashIndex(std::span<analysis::PackedFingerprint> fingerprints, const Eigen::VectorXf& durations,
            std::span<const char> usable, Indexed afterwards);

  /// Null when the file was left out.
  const IndexedFingerprint* find(int file) const { return files_[file] ? &*files_[file] : nullptr; }

 private:
  std::vector<std::optional<IndexedFingerprint>> files_;
};

}  // namespace vote
