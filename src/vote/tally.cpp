#include "vote/tally.h"

#include "vote/hit.h"

namespace vote {

void Election::hear(const Tally& tally) {
  if (tally.sections >= 2) span_ = tally.lastSection - tally.firstSection;  // else the last one's
  if (tally.counted > (most_ ? most_->counted : 0)) most_ = tally;
  const int sections = best_ ? best_->sections : 0, score = best_ ? best_->score : 0;
  if (tally.sections <= sections || tally.score <= score || span_ <= bestSpan_) return;
  best_ = tally;
  bestSpan_ = span_;
}

std::optional<OffsetStats> Election::stats() const {
  if (!best_) return std::nullopt;
  return OffsetStats{.bestOffset = secondsOfDelta(best_->delta),
                     .sections = static_cast<float>(best_->sections),
                     .mostHitsOffset = secondsOfDelta(most_->delta),
                     .mostHits = static_cast<float>(most_->counted),
                     .bestHits = static_cast<float>(best_->counted),
                     .span = static_cast<float>(bestSpan_),
                     .score = static_cast<float>(best_->score)};
}

}  // namespace vote
