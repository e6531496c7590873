#pragma once

#include <vector>

#include "bench/events/performance.h"

namespace events {

/// Electronic music at kStageRate: drums, bass and chords that repeat after one to four bars to the
/// very sample; every eight bars one of them enters or leaves.
std::vector<float> electronicMusic(double seconds, Random& random);

}  // namespace events
