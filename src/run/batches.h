#pragma once

#include <span>
#include <vector>

#include "run/media_probe.h"

namespace run {

/// Which entries are converted together, by their indices in `media` (one item an entry): batches
/// in the order in which they are begun, every index once. Long recordings, and those of which it
/// is not known how long they are or which of their tracks is heard, are alone; short ones share a
/// process, as far as `threads` threads still have something to do. The longest batch is the first,
/// so that all threads end at nearly the same time. Pure.
std::vector<std::vector<int>> batchesOf(std::span<const MediaProperties> media, int threads);

}  // namespace run
