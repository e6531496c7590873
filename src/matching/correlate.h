#pragma once

#include <span>
#include <vector>

namespace matching {

inline constexpr int kSampleRate = 8000;  // Hz

/// How well two pieces of sound of equal length fit at every lag from -maxLag to maxLag samples
/// (element maxLag is lag 0; a positive lag means that `b` hears it earlier), in units of the
/// function's own noise. Generalised cross-correlation: the spectra are whitened in part, so that
/// no loud tone decides alone, and the level is evened out over time, so that no single bump does.
std::vector<float> correlate(std::span<const float> a, std::span<const float> b, int maxLag);

/// Evens the level: every sample is divided by a power of the sound's level around it (50 ms).
void evenLevel(std::span<float> samples);

}  // namespace matching
