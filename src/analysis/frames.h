#pragma once

#include <Eigen/Core>
#include <functional>
#include <span>

#include "analysis/sample_source.h"

namespace analysis {

/// Frames of a recording of `samples` samples: two for every whole frame's length, and two silent
/// ones that end it.
Eigen::Index frameCount(std::int64_t samples);

/// Takes the next `count` frames (at most kBatch) of the delay at `index`: columns of kBins squared
/// magnitudes, one after the other.
using UsePowers = std::function<void(std::size_t index, const float* powers, int count)>;

/// Reads a recording once and transforms all of its frames, delayed by each of `shifts` samples;
/// every delay's frames come in their order, those of different delays by turns. False when `stop`,
/// polled every few seconds of sound, ended it. The memory does not depend on the length.
bool forEachFrame(SampleSource& source, std::span<const int> shifts, const UsePowers& use,
                  const std::function<bool()>& stop = {});

}  // namespace analysis
