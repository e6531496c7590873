#pragma once

#include <vector>

#include "analysis/matrix.h"

namespace event {

/// What one recording hears of an event.
struct Take {
  double start, seconds;  // on the event's clock
  double kept = 0.3;      // share of the event's landmarks that it hears
  double noise = 40;      // landmarks of its own, per second
};

/// Fingerprints of recordings of one event of random landmarks, `rate` of them a second, with the
/// hashes, the density and the zero rows of real ones. `seed` decides all.
std::vector<analysis::MatrixXLI> fingerprints(const std::vector<Take>& takes, double rate,
                                              unsigned seed);

}  // namespace event
