#include "vote/candidates.h"

#include <algorithm>
#include <bit>
#include <utility>

namespace vote {

CandidateSet::CandidateSet(std::span<const HitCode> hits) {
  if (hits.size() < 2) return;
  const auto counted = hits.first(hits.size() - 1);
  int top = -1, next = -1, least = kDeltas;  // next: the greatest but one, as top may lie far off
  for (const HitCode code : counted) {
    const int delta = deltaOf(code);
    least = std::min(least, delta);
    if (delta > top) next = std::exchange(top, delta);
    if (delta < top) next = std::max(next, delta);
  }
  if (next < 0) return;
  base_ = least;
  bits_.assign((next - least) / 64 + 1, 0);
  fill(counted, top);
  keepEndsOfRuns(top);
  countUp();
}

std::size_t CandidateSet::below(int delta) const {
  if (delta <= base_) return 0;
  const auto bit = static_cast<std::size_t>(delta - base_);
  if (bit / 64 >= bits_.size()) return deltas_.size();
  const std::uint64_t lower = (std::uint64_t{1} << bit % 64) - 1;
  return ranks_[bit / 64] + std::popcount(bits_[bit / 64] & lower);
}

void CandidateSet::fill(std::span<const HitCode> hits, int top) {
  for (const HitCode code : hits) {
    const int delta = deltaOf(code);
    if (delta != top) bits_[(delta - base_) / 64] |= std::uint64_t{1} << (delta - base_) % 64;
  }
}

void CandidateSet::keepEndsOfRuns(int top) {
  const auto last = static_cast<std::size_t>(top - 1 - base_);
  for (std::size_t word = 0; word < bits_.size(); ++word) {
    const std::uint64_t carry = word + 1 < bits_.size() ? bits_[word + 1] << 63 : 0;
    bits_[word] &= ~(bits_[word] >> 1 | carry);
  }
  if (last / 64 < bits_.size()) bits_[last / 64] &= ~(std::uint64_t{1} << last % 64);
}

void CandidateSet::countUp() {
  ranks_.reserve(bits_.size());
  for (std::size_t word = 0; word < bits_.size(); ++word) {
    ranks_.push_back(static_cast<std::uint32_t>(deltas_.size()));
    for (std::uint64_t rest = bits_[word]; rest != 0; rest &= rest - 1) {
      deltas_.push_back(base_ + static_cast<int>(word * 64) + std::countr_zero(rest));
    }
  }
}

}  // namespace vote
