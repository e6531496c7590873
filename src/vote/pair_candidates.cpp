#include "vote/pair_candidates.h"

#include <algorithm>
#include <cmath>
#include <functional>

namespace vote {
namespace {

constexpr double kApart = 0.3;  // seconds; nearer offsets are found from either
constexpr int kMostOffsets = 4;
constexpr double kFaint = 0.35;  // of the best peak's significance; fainter ones are chance

void addOffset(std::vector<double>& offsets, double offset) {
  const auto near = [&](double other) { return std::abs(other - offset) < kApart; };
  if (std::ssize(offsets) < kMostOffsets && std::ranges::none_of(offsets, near))
    offsets.push_back(offset);
}

bool accepted(const PairVote& vote) { return vote.accepted != Acceptance::none && vote.stats; }

double highestPeak(const PairVote& vote) {
  double highest = 0;
  for (const DeltaPeak& peak : vote.peaks) highest = std::max(highest, peak.significance);
  return highest;
}

PairCandidates suspicionOf(const PairVote& vote) {
  PairCandidates s{vote.first, vote.second, {}, significanceOf(vote)};
  if (accepted(vote)) addOffset(s.offsets, vote.stats->bestOffset);
  for (const DeltaPeak& peak : vote.peaks)
    if (peak.significance >= kFaint * highestPeak(vote)) addOffset(s.offsets, peak.offsetSeconds);
  if (vote.stats) addOffset(s.offsets, vote.stats->bestOffset);
  return s;
}

}  // namespace

double significanceOf(const PairVote& vote) {
  return std::max(highestPeak(vote), accepted(vote) ? double(vote.stats->sections) : 0.0);
}

std::vector<PairCandidates> candidatesOf(std::span<const PairVote> votes) {
  std::vector<PairCandidates> all;
  for (const PairVote& vote : votes)
    if (PairCandidates s = suspicionOf(vote); !s.offsets.empty()) all.push_back(std::move(s));
  std::ranges::stable_sort(all, std::greater{}, &PairCandidates::significance);
  return all;
}

}  // namespace vote
