#pragma once

#include <Eigen/Core>
#include <cstdint>

namespace analysis {

/// Whole numbers, used as unsigned. A recording's fingerprint has one row per landmark and two
/// columns, frame index (24 ms) and hash; its rows ascend by hash and a few of zeros come first.
using MatrixXLI = Eigen::Matrix<std::uint64_t, Eigen::Dynamic, Eigen::Dynamic>;

}  // namespace analysis
