#include "vote/estimate.h"

#include <algorithm>
#include <cstdlib>
#include <span>

#include "vote/candidates.h"
#include "vote/join.h"
#include "vote/tally.h"

namespace vote {
namespace {

std::vector<Tally> tallies(std::span<const HitCode> hits, const CandidateSet& candidates) {
  std::vector<Tally> all;
  all.reserve(candidates.deltas().size());
  for (const int delta : candidates.deltas()) all.push_back({.delta = delta});
  for (std::size_t k = 0; k + 2 < hits.size(); ++k) {
    const int a = deltaOf(hits[k]), b = deltaOf(hits[k + 1]), c = deltaOf(hits[k + 2]);
    const int reach = std::abs(a - b) > 2 * kReach ? 1 : kReach;  // alone, it counts only near by
    for (std::size_t i = candidates.below(a - reach); i < all.size() && all[i].delta <= a + reach;
         ++i) {
      const int delta = all[i].delta;
      all[i].add(sectionOf(hits[k]), std::abs(delta - a), std::abs(delta - b), std::abs(delta - c));
    }
  }
  return all;
}

}  // namespace

std::optional<OffsetStats> estimateOffset(std::vector<HitCode> hits) {
  if (!std::ranges::is_sorted(hits)) sortHits(hits);
  hits.erase(std::unique(hits.begin(), hits.end()), hits.end());
  const CandidateSet candidates(hits);
  Election election;
  for (const Tally& tally : tallies(hits, candidates)) election.hear(tally);
  return election.stats();
}

}  // namespace vote
