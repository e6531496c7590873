#include "align/activity.h"

#include <algorithm>
#include <cmath>

namespace align {
namespace {

constexpr Eigen::Index kStep = 8;  // frames; what is active is so for a second at least

Eigen::Index framesIn(const std::vector<FrameRange>& ranges) {
  Eigen::Index frames = 0;
  for (const FrameRange& range : ranges) frames += range.to - range.from;
  return frames;
}

}  // namespace

std::vector<FrameRange> activeRanges(const Envelope& a, const Envelope& b, Eigen::Index lag) {
  std::vector<FrameRange> ranges;
  const Eigen::Index end = std::min(a.cols(), lag + b.cols());
  for (Eigen::Index from = std::max<Eigen::Index>(0, lag); from < end; from += kStep) {
    const Eigen::Index to = std::min(end, from + kStep);
    if (!isActive(a, from, to - from) || !isActive(b, from - lag, to - from)) continue;
    if (!ranges.empty() && ranges.back().to == from)
      ranges.back().to = to;
    else
      ranges.push_back({from, to});
  }
  return ranges;
}

std::vector<FrameRange> middleOf(std::vector<FrameRange> ranges, Eigen::Index most) {
  const Eigen::Index all = framesIn(ranges), first = std::max<Eigen::Index>(0, (all - most) / 2);
  Eigen::Index before = 0;  // frames of the ranges that were passed
  for (FrameRange& range : ranges) {
    const Eigen::Index frames = range.to - range.from, from = range.from;
    range.from = from + std::clamp<Eigen::Index>(first - before, 0, frames);
    range.to = from + std::clamp<Eigen::Index>(first + most - before, 0, frames);
    before += frames;
  }
  std::erase_if(ranges, [](const FrameRange& range) { return range.from >= range.to; });
  return ranges;
}

std::vector<Stretch> activeStretches(const Envelope& a, const Envelope& b, double offsetSeconds) {
  std::vector<Stretch> stretches;
  const auto lag = static_cast<Eigen::Index>(std::lround(offsetSeconds * kEnvelopeRate));
  for (const FrameRange& range : activeRanges(a, b, lag))
    stretches.push_back({double(range.from) / kEnvelopeRate, double(range.to) / kEnvelopeRate});
  return stretches;
}

}  // namespace align
