#include "matching/estimate.h"

#include <algorithm>
#include <cstdlib>
#include <span>

#include "matching/candidates.h"
#include "matching/join.h"

namespace matching {
namespace {

constexpr int kReach = 4;  // hundredths; a hit says nothing about candidates farther off

/// What the hits say about one candidate. Hits come in order of section.
struct Tally {
  int delta;
  int score = 0;
  int counted = 0;
  int sections = 0;
  int firstSection = 0;
  int lastSection = -1;

  void note(int section) {
    if (section == lastSection) return;
    if (sections++ == 0) firstSection = section;
    lastSection = section;
  }
};

/// Adds the hit of `section` whose delta lies `d0` from the candidate, and those of the next two
/// hits `d1` and `d2`: hits that lie together weigh most.
void add(Tally& tally, int section, int d0, int d1, int d2) {
  const int worstOfTwo = std::max(d0, d1);
  const int worstOfThree = std::max(worstOfTwo, d2);
  const auto count = [&](int hits, int score) {
    tally.counted += hits;
    tally.score += score;
    tally.note(section);
  };
  if (worstOfThree < 3) count(3, 200);
  if (worstOfThree < 5) count(3, 100);
  if (worstOfTwo < 5) count(2, 30);
  if (d0 < 2) ++tally.counted;
  if (d0 == 0) count(1, 0);
}

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
      add(all[i], sectionOf(hits[k]), std::abs(delta - a), std::abs(delta - b),
          std::abs(delta - c));
    }
  }
  return all;
}

/// The winner takes over only when it is ahead in sections, score and span at once.
std::optional<OffsetStats> winner(std::span<const Tally> all) {
  const Tally* best = nullptr;
  const Tally* most = nullptr;
  int bestSections = 0, bestScore = 0, bestSpan = 0, span = 0;
  for (const Tally& tally : all) {
    if (tally.sections >= 2) span = tally.lastSection - tally.firstSection;  // else the last one's
    if (tally.counted > (most ? most->counted : 0)) most = &tally;
    if (tally.sections <= bestSections || tally.score <= bestScore || span <= bestSpan) continue;
    best = &tally;
    bestSections = tally.sections, bestScore = tally.score, bestSpan = span;
  }
  if (!best) return std::nullopt;
  return OffsetStats{.bestOffset = secondsOfDelta(best->delta),
                     .sections = static_cast<float>(bestSections),
                     .mostHitsOffset = secondsOfDelta(most->delta),
                     .mostHits = static_cast<float>(most->counted),
                     .bestHits = static_cast<float>(best->counted),
                     .span = static_cast<float>(bestSpan),
                     .score = static_cast<float>(bestScore)};
}

}  // namespace

std::optional<OffsetStats> estimateOffset(std::vector<HitCode> hits) {
  if (!std::ranges::is_sorted(hits)) sortHits(hits);
  hits.erase(std::unique(hits.begin(), hits.end()), hits.end());
  const CandidateSet candidates(hits);
  return winner(tallies(hits, candidates));
}

}  // namespace matching
