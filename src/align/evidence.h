#pragma once

#include <span>

#include "align/line.h"

namespace align {

/// What all windows of an overlap say together, however little each of them says.
struct Evidence {
  double logOdds = 0;  // natural logarithm of the likelihood ratio "these hear the same, at some
                       // delay and drift in reach" against "these have nothing in common"
  double delaySamples = 0;  // the likeliest delay at the overlap's middle, against the supposed one
  double slope = 0;         // samples per second
  double doubtSamples = 0;  // standard deviation of the delay: how alike its neighbours are, and
                            // how far the rooms spread the sound, for an echo may be louder than it
};

/// Evidence of correlations that are laid over each other along straight lines of delay over time,
/// each with its sign and none left out, so that what is no more than chance in one window adds up
/// in many, and a single bump says little. Rooms spread sound over time: not only the delay itself
/// counts, but all that the correlations have more around it than chance gives. The number of
/// delays and slopes that were tried is accounted for. `overlapSeconds`: how far slopes matter.
Evidence evidenceOf(std::span<const WindowCorrelation> windows, double overlapSeconds);

}  // namespace align
