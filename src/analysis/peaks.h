#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "analysis/spectrogram.h"

namespace analysis {

/// A point of the spectrogram that stands out. Frames count from 0 and last 24 ms.
struct Peak {
  int frame;
  int bin;
  float value;  // of the spectrogram

  bool operator==(const Peak&) const = default;
};

/// Peaks above an envelope that every peak raises around itself and that falls by the factor
/// `decay` from frame to frame; at most five a frame, in the order of time and, within a frame,
/// of height. After frame t of F there are at most capacity * (t + 1) / F, so that busy sound
/// does not use up the capacity before its end.
std::vector<Peak> forwardPeaks(const Spectrogram& s, float decay, std::int64_t capacity);

/// Those of `peaks` (in the order of forwardPeaks) that also stand out when the sound is heard
/// backwards, the latest first.
std::vector<Peak> backwardPeaks(const Spectrogram& s, std::span<const Peak> peaks, float decay);

}  // namespace analysis
