#include "vote/vote_pairs.h"

#include <algorithm>
#include <atomic>
#include <numeric>
#include <utility>

#include "report/parallel.h"
#include "report/per_thread.h"
#include "vote/compare.h"
#include "vote/evaluate.h"
#include "vote/hash_index.h"
#include "vote/hit_map.h"
#include "vote/peaks.h"

namespace vote {
namespace {

constexpr std::size_t kBlockPairs = 1 << 14;
constexpr Eigen::Index kBlockRows = 200'000'000;  // about a second of work between two hand-overs

constexpr int kPairsAtOnce = 8;  // of one thread; they share a file

using Fingerprints = std::vector<analysis::PackedFingerprint>;

std::vector<Eigen::Index> rowsOf(const Fingerprints& fingerprints) {
  std::vector<Eigen::Index> rows;
  for (const auto& fingerprint : fingerprints) rows.push_back(fingerprint.rows());
  return rows;
}

bool goesByIndex(const FilePair& pair, std::span<const char> indexable) {
  const bool mayMeetFiller = pair.first == 0 && pair.second < 10;  // packed, such hits look alike
  return indexable[pair.first] && indexable[pair.second] && !mayMeetFiller;
}

/// Votes on pairs one by one; callable from several threads at once.
class Voter {
 public:
  Voter(Fingerprints fingerprints, const Eigen::VectorXf& durations,
        std::span<const FilePair> pairs, int mode)
      : fingerprints_(std::move(fingerprints)),
        durations_(durations),
        mode_(mode),
        indexable_(indexable(fingerprints_, durations)),
        index_(fingerprints_, durations, indexable_, afterIndexing(pairs)) {}

  PairVote vote(const FilePair& pair) const {
    return goesByIndex(pair, indexable_)
               ? indexedVote(pair, *index_.find(pair.first), *index_.find(pair.second))
               : packedVote(pair);
  }

 private:
  /// Where a pair does not go by the index, fingerprints are read once more.
  Indexed afterIndexing(std::span<const FilePair> pairs) const {
    const auto byIndex = [&](const FilePair& pair) { return goesByIndex(pair, indexable_); };
    return std::ranges::all_of(pairs, byIndex) ? Indexed::dropped : Indexed::kept;
  }

  PairVote indexedVote(const FilePair& pair, const IndexedFingerprint& x,
                       const IndexedFingerprint& y) const {
    static const report::PerThread<HitMap> maps;
    HitMap& hits = *maps;
    hits.fill(x, y);
    const bool enough = hits.hits() >= static_cast<int>(kFewestHits);  // and a sentinel
    PairVote vote = voteWith(enough ? hits.estimate() : std::nullopt, pair.first, pair.second,
                             durations_, mode_);
    if (enough) vote.eighthHit = hits.eighth(x, y, pair.first, pair.second);
    const int fillers = y.fillers > 0 ? x.fillers : 0;
    vote.rawHits = hits.hits() - fillers;
    vote.peaks = hits.peaks(fillers);
    return vote;
  }

  /// The same by the packed hits, for fingerprints that cannot be indexed.
  PairVote packedVote(const FilePair& pair) const {
    const auto& x = fingerprints_[pair.first];
    const auto& y = fingerprints_[pair.second];
    const auto hits = compareFingerprints(x.matrix(), y.matrix(), pair.first, pair.second,
                                          durations_[pair.first] + 1, durations_[pair.second] + 1);
    PairVote vote = voteOn(hits, durations_, mode_)
                        .value_or(voteWith({}, pair.first, pair.second, durations_, mode_));
    if (hits.back() == 0) return vote;  // nothing in common
    const int fillers = leadingFillers(y) > 0 ? leadingFillers(x) : 0;
    vote.rawHits = static_cast<int>(hits.size()) - 1 - fillers;
    vote.peaks = strongestPeaks(std::span(hits).subspan(1), fillers);
    return vote;
  }

  Fingerprints fingerprints_;
  const Eigen::VectorXf& durations_;
  int mode_;
  std::vector<char> indexable_;
  HashIndex index_;
};

/// The order in which a block's pairs are voted on: those that share the file listed later follow
/// one another, so that it is read while it is in the processor's cache.
std::vector<std::size_t> cacheOrder(std::span<const FilePair> block) {
  std::vector<std::size_t> order(block.size());
  std::iota(order.begin(), order.end(), 0);
  std::ranges::stable_sort(
      order, {}, [&](std::size_t i) { return std::max(block[i].first, block[i].second); });
  return order;
}

/// The pairs from the front of `pairs` on that make one block of work, at least one.
std::span<const FilePair> nextBlock(std::span<const FilePair> pairs,
                                    std::span<const Eigen::Index> rowsByFile) {
  Eigen::Index rows = 0;
  std::size_t count = 0;
  while (count < std::min(pairs.size(), kBlockPairs) && rows < kBlockRows) {
    rows += rowsByFile[pairs[count].first] + rowsByFile[pairs[count].second];
    ++count;
  }
  return pairs.first(count);
}

}  // namespace

bool votePairs(Fingerprints fingerprints, const Eigen::VectorXf& durations,
               std::span<const FilePair> pairs, int mode, const std::function<void(PairVote)>& sink,
               const std::function<bool()>& cancelled) {
  const std::vector<Eigen::Index> rows = rowsOf(fingerprints);
  const Voter voter(std::move(fingerprints), durations, pairs, mode);
  std::vector<PairVote> votes;
  std::atomic<bool> stop = false;
  for (std::span<const FilePair> rest = pairs; !rest.empty();) {
    const auto block = nextBlock(rest, rows);
    rest = rest.subspan(block.size());
    votes.resize(block.size());
    const std::vector<std::size_t> order = cacheOrder(block);
    report::FirstException failed;
#pragma omp parallel for schedule(dynamic, kPairsAtOnce)
    for (std::ptrdiff_t i = 0; i < std::ssize(order); ++i) {
      failed.keep([&] {
        stop = stop || (cancelled && cancelled());
        if (!stop) votes[order[i]] = voter.vote(block[order[i]]);
      });
    }
    failed.rethrow();
    if (stop) return false;
    for (PairVote& vote : votes) sink(std::move(vote));
  }
  return true;
}

bool votePairs(std::span<const analysis::MatrixXLI> fingerprints, const Eigen::VectorXf& durations,
               std::span<const FilePair> pairs, int mode, const std::function<void(PairVote)>& sink,
               const std::function<bool()>& cancelled) {
  Fingerprints packed;
  for (const analysis::MatrixXLI& matrix : fingerprints) packed.emplace_back(matrix);
  return votePairs(std::move(packed), durations, pairs, mode, sink, cancelled);
}

bool votePairs(std::span<const analysis::MatrixXLI> fingerprints, const Eigen::VectorXf& durations,
               const std::vector<std::vector<int>>& deviceGroups, int mode,
               const std::function<void(PairVote)>& sink, const std::function<bool()>& cancelled) {
  const Eigen::VectorXf raised = durations.array() + 1;  // as the comparison has them
  return votePairs(fingerprints, durations, pairsToCompare(raised, deviceGroups), mode, sink,
                   cancelled);
}

}  // namespace vote
