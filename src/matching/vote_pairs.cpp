#include "matching/vote_pairs.h"

#include <algorithm>
#include <atomic>

#include "matching/compare.h"
#include "matching/evaluate.h"
#include "matching/peaks.h"

namespace matching {
namespace {

constexpr std::size_t kBlockPairs = 4096;
constexpr Eigen::Index kBlockRows = 20'000'000;  // about a second of work between two hand-overs

using Fingerprints = std::span<const analysis::MatrixXLI>;

bool isFiller(const analysis::MatrixXLI& fingerprint, Eigen::Index row) {
  return fingerprint(row, 0) == 0 && fingerprint(row, 1) == 0;
}

/// How many hits of a pair come from the rows of zeros that stand first in every fingerprint.
int fillerHits(const analysis::MatrixXLI& x, const analysis::MatrixXLI& y) {
  if (y.rows() == 0 || !isFiller(y, 0)) return 0;
  int rows = 0;
  while (rows < x.rows() && isFiller(x, rows)) ++rows;
  return rows;
}

PairVote voteOnPair(const FilePair& pair, Fingerprints fingerprints,
                    const Eigen::VectorXf& durations, int mode) {
  const auto& x = fingerprints[pair.first];
  const auto& y = fingerprints[pair.second];
  const auto hits = compareFingerprints(x, y, pair.first, pair.second, durations[pair.first] + 1,
                                        durations[pair.second] + 1);
  PairVote vote =
      voteOn(hits, durations, mode)
          .value_or(PairVote{.first = pair.first, .second = pair.second, .stats = {}, .peaks = {}});
  if (hits.back() == 0) return vote;  // nothing in common
  const int fillers = fillerHits(x, y);
  vote.rawHits = static_cast<int>(hits.size()) - 1 - fillers;
  vote.peaks = strongestPeaks(std::span(hits).subspan(1), fillers);
  return vote;
}

/// The pairs from the front of `pairs` on that make one block of work, at least one.
std::span<const FilePair> nextBlock(std::span<const FilePair> pairs, Fingerprints fingerprints) {
  Eigen::Index rows = 0;
  std::size_t count = 0;
  while (count < std::min(pairs.size(), kBlockPairs) && rows < kBlockRows) {
    rows += fingerprints[pairs[count].first].rows() + fingerprints[pairs[count].second].rows();
    ++count;
  }
  return pairs.first(count);
}

}  // namespace

bool votePairs(Fingerprints fingerprints, const Eigen::VectorXf& durations,
               std::span<const FilePair> pairs, int mode,
               const std::function<void(PairVote)>& sink, const std::function<bool()>& cancelled) {
  std::vector<PairVote> votes;
  std::atomic<bool> stop = false;
  for (std::span<const FilePair> rest = pairs; !rest.empty();) {
    const auto block = nextBlock(rest, fingerprints);
    rest = rest.subspan(block.size());
    votes.resize(block.size());
#pragma omp parallel for schedule(dynamic)
    for (std::ptrdiff_t i = 0; i < std::ssize(block); ++i) {
      if (stop || (cancelled && cancelled())) {
        stop = true;
        continue;
      }
      votes[i] = voteOnPair(block[i], fingerprints, durations, mode);
    }
    if (stop) return false;
    for (PairVote& vote : votes) sink(std::move(vote));
  }
  return true;
}

bool votePairs(Fingerprints fingerprints, const Eigen::VectorXf& durations,
               const std::vector<std::vector<int>>& deviceGroups, int mode,
               const std::function<void(PairVote)>& sink, const std::function<bool()>& cancelled) {
  const Eigen::VectorXf raised = durations.array() + 1;  // as the comparison has them
  return votePairs(fingerprints, durations, pairsToCompare(raised, deviceGroups), mode, sink,
                   cancelled);
}

}  // namespace matching
