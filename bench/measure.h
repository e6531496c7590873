#pragma once

#include <string>
#include <utility>
#include <vector>

#include "align/matches.h"
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

/// What a run listens to in one set.
struct Listened {
  Set set;
  std::vector<align::Recording> recordings;
  std::vector<align::Match> matches;
  std::vector<std::pair<int, int>> heard;  // pairs of files, ascending, with success or without
};

Listened listenedTo(RenderedSet rendered, bool knowDevices);

}  // namespace events
