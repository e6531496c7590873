#pragma once

#include <string>

#include "bench/events/cache.h"
#include "bench/score.h"

namespace events {

/// What one set came to.
struct Result {
  Score byVotes, bySound;
  std::string list;
};

/// Places the set's takes as a run does, by votes alone and by sound. Without `knowDevices` nobody
/// says which takes are of one device. Within a parallel region the processor time is this
/// thread's, otherwise the whole program's.
Result measured(RenderedSet rendered, bool knowDevices, float tolerance);

}  // namespace events
