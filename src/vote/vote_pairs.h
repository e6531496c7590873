#pragma once

#include <Eigen/Core>
#include <functional>
#include <span>
#include <vector>

#include "analysis/matrix.h"
#include "analysis/packed_fingerprint.h"
#include "vote/compare.h"
#include "vote/vote.h"

namespace vote {

/// Compares and votes on every one of `pairs`, in parallel, and hands one vote for each to `sink`,
/// in that order and from the calling thread. The votes are those that proveriall and
/// evaluatePairs come to, with raw hits and peaks besides; pairs with too few hits have no stats.
/// Keeps no hits, so that memory does not grow with the number of pairs. `durations` are seconds,
/// by file index like `fingerprints`. `cancelled` may be empty; it is polled at every pair, from
/// any thread. False when it ended the work: pairs of the last block are then missing. The
/// fingerprints are given up one by one for what they are compared by.
bool votePairs(std::vector<analysis::PackedFingerprint> fingerprints,
               const Eigen::VectorXf& durations, std::span<const FilePair> pairs, int mode,
               const std::function<void(PairVote)>& sink,
               const std::function<bool()>& cancelled = {});

/// The same for matrices.
bool votePairs(std::span<const analysis::MatrixXLI> fingerprints, const Eigen::VectorXf& durations,
               std::span<const FilePair> pairs, int mode, const std::function<void(PairVote)>& sink,
               const std::function<bool()>& cancelled = {});

/// The same for every pair of pairsToCompare.
bool votePairs(std::span<const analysis::MatrixXLI> fingerprints, const Eigen::VectorXf& durations,
               const std::vector<std::vector<int>>& deviceGroups, int mode,
               const std::function<void(PairVote)>& sink,
               const std::function<bool()>& cancelled = {});

}  // namespace vote
