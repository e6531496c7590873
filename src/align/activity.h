#pragma once

#include <vector>

#include "align/subband_envelope.h"

namespace align {

/// Frames [from, to) of a envelope.
struct FrameRange {
  Eigen::Index from, to;
};

/// Where two recordings both hear more than steady noise, on a's frames, if b starts `lag` frames
/// after a. In steps of a quarter of a second; ranges that touch are one. Pure.
std::vector<FrameRange> activeRanges(const Envelope& a, const Envelope& b, Eigen::Index lag);

/// The same in ranges that together have at most `most` frames, from around their middle.
std::vector<FrameRange> middleOf(std::vector<FrameRange> ranges, Eigen::Index most);

/// Seconds on the clock of a pair's first recording.
struct Stretch {
  double from, to;
};

/// The active ranges where b starts `offsetSeconds` after a, as times.
std::vector<Stretch> activeStretches(const Envelope& a, const Envelope& b, double offsetSeconds);

}  // namespace align
