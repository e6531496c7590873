#include "analysis/collection.h"

#include <algorithm>
#include <array>
#include <utility>

namespace analysis {
namespace {

using Row = PackedFingerprint::Row;

constexpr Eigen::Index kZeroRows = 5;  // of every fingerprint

// A delay without landmarks adds a row of zeros.
Eigen::Index zeroRows(const std::vector<std::vector<Landmark>>& delays) {
  return kZeroRows + std::ranges::count_if(delays, &std::vector<Landmark>::empty);
}

// Equal hashes keep their order. Linear.
void sortByHash(std::vector<Row>& rows) {
  constexpr int kDigitBits = 12;
  constexpr int kDigits = 3;  // hashes stay below 2 to the power of 35
  std::vector<Row> sorted(rows.size());
  for (int digit = 0; digit < kDigits; ++digit) {
    const auto bucket = [&](Row row) {
      return (PackedFingerprint::hashOf(row) >> (digit * kDigitBits)) % (1 << kDigitBits);
    };
    std::array<std::size_t, (1 << kDigitBits) + 1> ends = {};
    for (const Row row : rows) ++ends[bucket(row) + 1];
    for (std::size_t i = 1; i < ends.size(); ++i) ends[i] += ends[i - 1];
    for (const Row row : rows) sorted[ends[bucket(row)]++] = row;
    rows.swap(sorted);
  }
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

PackedFingerprint Collection::sorted() && {
  std::vector<Row> packed;
  packed.reserve(static_cast<std::size_t>(rows()));
  packed.resize(static_cast<std::size_t>(zeroRows(delays_)));
  for (std::vector<Landmark>& delay : delays_) {
    for (const Landmark& landmark : delay)
      packed.push_back(PackedFingerprint::row(landmark.frame, hashOf(landmark)));
    delay = {};
  }
  delays_.clear();
  sortByHash(packed);
  return PackedFingerprint(std::move(packed));
}

MatrixXLI emptyFingerprint() {
  return MatrixXLI::Zero(kZeroRows + static_cast<Eigen::Index>(kShifts.size()), 2);
}

}  // namespace analysis
