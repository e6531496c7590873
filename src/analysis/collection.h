#pragma once

#include <array>
#include <span>
#include <utility>
#include <vector>

#include "analysis/landmarks.h"
#include "analysis/matrix.h"
#include "analysis/packed_fingerprint.h"

namespace analysis {

/// Delays in samples with which a recording is heard: steps of a sixth of the frames' distance.
inline constexpr std::array kShifts = {0, 32, 64};

/// `zeroRows` rows of zeros, then frame index and hash of the landmarks in their order.
MatrixXLI asMatrix(std::span<const Landmark> landmarks, Eigen::Index zeroRows);

/// The landmarks of one recording, delay by delay, on their way to a fingerprint.
class Collection {
 public:
  explicit Collection(std::vector<std::vector<Landmark>> delays) : delays_(std::move(delays)) {}

  /// Rows of the fingerprint.
  Eigen::Index rows() const;

  /// The fingerprint. Leaves nothing behind, so that a long recording is not held twice.
  PackedFingerprint sorted() &&;

 private:
  std::vector<std::vector<Landmark>> delays_;
};

/// The fingerprint of a recording in which nothing is heard.
MatrixXLI emptyFingerprint();

}  // namespace analysis
