#pragma once

#include "analysis/landmarks.h"
#include "analysis/spectrogram.h"

/// The analysis step by step, as plainly as it can be written and without regard to speed or
/// memory. The product's code has to find the same.
namespace reference {

analysis::Spectrogram spectrogram(std::span<const float> samples, int shift);

std::vector<analysis::Peak> forwardPeaks(const analysis::Spectrogram& s, float decay,
                                         std::int64_t capacity);

std::vector<analysis::Peak> backwardPeaks(const analysis::Spectrogram& s,
                                          const std::vector<analysis::Peak>& peaks, float decay);

std::vector<analysis::Landmark> pairPeaks(const std::vector<analysis::Peak>& peaks,
                                          float targetBins, float targetFrames);

}  // namespace reference
