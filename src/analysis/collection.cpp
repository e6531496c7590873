#include "analysis/collection.h"

#include <algorithm>
#include <utility>

namespace analysis {
namespace {

constexpr Eigen::Index kZeroRows = 5;  // of every fingerprint

// A delay without landmarks adds a row of zeros.
Eigen::Index zeroRows(const std::vector<std::vector<Landmark>>& delays) {
  return kZeroRows + std::ranges::count_if(delays, &std::vector<Landmark>::empty);
}

}  // namespace

MatrixXLI asMatrix(std::span<const Landmark> landmarks, Eigen::Index zeroRows) {
  MatrixXLI matrix(zeroRows + static_cast<Eigen::Index>(landmarks.size()), 2);
  matrix.topRows(zeroRows).setZero();
  for (Eigen::Index row = zeroRows; const Landmark& landmark : landmarks) {
    matrix(row, 0) = landmark.frame;
    matrix(row, 1) = hashOf(landmark);
    ++row;
  }
  return matrix;
}

Eigen::Index Collection::rows() const {
  Eigen::Index rows = zeroRows(delays_);
  for (const auto& landmarks : delays_) rows += static_cast<Eigen::Index>(landmarks.size());
  return rows;
}

MatrixXLI Collection::sorted() && {
  const Eigen::Index zeros = zeroRows(delays_);
  std::vector<Landmark> landmarks;
  landmarks.reserve(static_cast<std::size_t>(rows() - zeros));
  for (std::vector<Landmark>& delay : delays_) {
    landmarks.insert(landmarks.end(), delay.begin(), delay.end());
    delay = {};
  }
  delays_.clear();
  sortByHash(landmarks);
  return asMatrix(landmarks, zeros);
}

MatrixXLI emptyFingerprint() {
  return MatrixXLI::Zero(kZeroRows + static_cast<Eigen::Index>(kShifts.size()), 2);
}

}  // namespace analysis
