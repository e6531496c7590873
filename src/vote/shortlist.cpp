#include "vote/shortlist.h"

#include <algorithm>
#include <functional>
#include <numeric>
#include <utility>

#include "vote/pair_candidates.h"

namespace vote {

void Shortlist::add(PairVote vote) {
  if (!vote.stats && vote.peaks.empty()) return;
  votes_.push_back(std::move(vote));
  if (votes_.size() < room_) return;
  shorten();
  room_ = 2 * votes_.size() + files_ * perFile_;
}

std::vector<PairVote> Shortlist::take() {
  shorten();
  return std::exchange(votes_, {});
}

void Shortlist::shorten() {
  std::vector<std::size_t> order(votes_.size()), seen(files_, 0);
  std::iota(order.begin(), order.end(), 0);
  std::ranges::stable_sort(order, std::greater{},
                           [&](std::size_t i) { return significanceOf(votes_[i]); });
  std::vector<bool> stays(votes_.size());
  for (const std::size_t i : order) {
    const PairVote& vote = votes_[i];
    const std::size_t before =
        std::min(seen[std::size_t(vote.first)]++, seen[std::size_t(vote.second)]++);
    stays[i] = before < perFile_ || vote.accepted != Acceptance::none;
  }
  std::vector<PairVote> kept;
  for (std::size_t i = 0; i < votes_.size(); ++i)
    if (stays[i]) kept.push_back(std::move(votes_[i]));
  votes_ = std::move(kept);
}

}  // namespace vote
