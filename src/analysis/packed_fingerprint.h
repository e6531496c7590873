#pragma once

#include <cstdint>
#include <span>
#include <utility>
#include <vector>

#include "analysis/matrix.h"

namespace analysis {

/// A fingerprint in half the room of its matrix: one number a row, the hash before the frame, so
/// that rows ascend as they do there.
class PackedFingerprint {
 public:
  using Row = std::uint64_t;

  PackedFingerprint() = default;

  /// Ascending rows.
  explicit PackedFingerprint(std::vector<Row> rows) : rows_(std::move(rows)) {}

  /// One that analysis did not make, with numbers that a row has no room for, stays a matrix.
  explicit PackedFingerprint(MatrixXLI matrix);

  static constexpr Row row(std::uint64_t frame, std::uint64_t hash) {
    return hash << kFrameBits | frame;
  }
  static constexpr std::uint64_t hashOf(Row row) { return row >> kFrameBits; }

  Eigen::Index rows() const { return isOdd() ? odd_.rows() : std::ssize(rows_); }
  std::uint64_t frame(Eigen::Index row) const {
    return isOdd() ? odd_(row, 0) : rows_[static_cast<std::size_t>(row)] & (kFrameLimit - 1);
  }
  std::uint64_t hash(Eigen::Index row) const {
    return isOdd() ? odd_(row, 1) : hashOf(rows_[static_cast<std::size_t>(row)]);
  }
  MatrixXLI matrix() const;

  /// All rows; none of one that stayed a matrix.
  std::span<const Row> packed() const { return rows_; }

  bool operator==(const PackedFingerprint& other) const { return matrix() == other.matrix(); }

 private:
  static constexpr int kFrameBits = 28;  // 74 days; hashes stay below 2 to the power of 35
  static constexpr std::uint64_t kFrameLimit = std::uint64_t{1} << kFrameBits;

  bool isOdd() const { return odd_.size() > 0; }

  std::vector<Row> rows_;
  MatrixXLI odd_;
};

}  // namespace analysis
