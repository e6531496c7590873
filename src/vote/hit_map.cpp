#include "vote/hit_map.h"

#include <algorithm>

#include "vote/peaks.h"
#include "vote/places_vote.h"

namespace vote {

void HitMap::fill(const IndexedFingerprint& x, const IndexedFingerprint& y) {
  begin_ = 1 - y.frameEnd - kReachPlaces;
  const auto places = static_cast<std::size_t>(x.frameEnd + y.frameEnd - 1 + 2 * kReachPlaces);
  sections_.assign(places, 0);
  counts_.assign(places, 0);
  hits_ = 0;
  inSection_.fill(0);
  common_ = commonHashes(x, y, room_);
  for (const CommonHash& hash : common_) {
    const IndexedFingerprint::Run run = y.runs[hash.y];
    const std::uint32_t bit = std::uint32_t{1} << run.section;
    const int zero = -static_cast<int>(run.frame) - begin_;
    const std::uint32_t first = x.runs[hash.x].firstRow, end = x.runs[hash.x + 1].firstRow;
    for (std::uint32_t row = first; row < end; ++row) {
      const int place = x.frames[row] + zero;
      sections_[place] |= bit;
      ++counts_[place];
    }
    hits_ += static_cast<int>(end - first);
    inSection_[run.section] += static_cast<int>(end - first);
  }
}

// Hits sort by section first, so that those of the earliest sections are enough.
HitCode HitMap::eighth(const IndexedFingerprint& x, const IndexedFingerprint& y, int first,
                       int second) const {
  constexpr int kRank = 7;  // from 0 on
  int sections = 0;
  for (int sum = 0; sum <= kRank; ++sections) sum += inSection_[sections];
  std::vector<HitCode> hits;
  for (const CommonHash& hash : common_) {
    const IndexedFingerprint::Run run = y.runs[hash.y];
    if (static_cast<int>(run.section) >= sections) continue;
    for (std::uint32_t row = x.runs[hash.x].firstRow; row < x.runs[hash.x + 1].firstRow; ++row)
      hits.push_back(pack({static_cast<int>(run.section), first, second,
                           deltaOfDifference(x.frames[row] - static_cast<int>(run.frame))}));
  }
  std::ranges::nth_element(hits, hits.begin() + kRank);
  return hits[kRank];
}

std::optional<OffsetStats> HitMap::estimate() const { return estimatePlaces(sections_, begin_); }

std::vector<DeltaPeak> HitMap::peaks(int fillers) {
  const auto isHit = [](std::uint32_t sections) { return sections != 0; };
  const auto first = std::ranges::find_if(sections_, isHit) - sections_.begin();
  const auto end = std::find_if(sections_.rbegin(), sections_.rend(), isHit).base();
  if (hits_ == 0) return {};
  const std::size_t places = end - sections_.begin() - first;
  counts_[-begin_] -= fillers;
  return peaksOfCounts(std::span(counts_).subspan(first, places), begin_ + static_cast<int>(first));
}

}  // namespace vote
