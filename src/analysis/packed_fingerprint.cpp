#include "analysis/packed_fingerprint.h"

namespace analysis {

PackedFingerprint::PackedFingerprint(MatrixXLI matrix) {
  constexpr std::uint64_t kHashLimit = std::uint64_t{1} << (64 - kFrameBits);
  if (matrix.size() == 0) return;
  const bool fits = matrix.cols() == 2 && (matrix.col(0).array() < kFrameLimit).all() &&
                    (matrix.col(1).array() < kHashLimit).all();
  if (!fits) {
    odd_ = std::move(matrix);
    return;
  }
  rows_.reserve(static_cast<std::size_t>(matrix.rows()));
  for (const auto& each : matrix.rowwise()) rows_.push_back(row(each[0], each[1]));
}

MatrixXLI PackedFingerprint::matrix() const {
  if (isOdd()) return odd_;
  MatrixXLI matrix(rows(), 2);
  for (Eigen::Index i = 0; i < rows(); ++i) matrix.row(i) << frame(i), hash(i);
  return matrix;
}

}  // namespace analysis
