#pragma once

#include <Eigen/Core>
#include <cstdint>
#include <functional>
#include <span>
#include <vector>

namespace align {

inline constexpr double kEnvelopeRate = 31.25;  // frames per second
inline constexpr int kEnvelopeBands = 16;

/// How the sound moves in each band: bands (rows) by frames (columns), level over the level around
/// it in steps of 1/60 standard deviation, limited to two deviations, so that neither loudness nor
/// a steady tone nor a single bump says much. Where there is nothing but steady noise, or silence,
/// all is half as large. An hour takes 1.8 MB.
using Envelope = Eigen::Array<std::int8_t, kEnvelopeBands, Eigen::Dynamic>;

/// Reads `count` samples (mono, 8000 Hz) from sample `first` on; past the end they are 0.
using ReadSamples = std::function<std::vector<float>(std::int64_t first, std::int64_t count)>;

/// The envelope of a recording of `samples` samples, which is read piece by piece: an hour takes
/// 9 MB of room meanwhile. Callable from any thread that `read` is.
Envelope envelopeOf(std::int64_t samples, const ReadSamples& read);

/// The envelope of `samples`. Pure: callable from any thread.
Envelope envelopeOf(std::span<const float> samples);

/// Whether there is more than steady noise in some of `frames` frames from `first` on.
bool isActive(const Envelope& envelope, Eigen::Index first, Eigen::Index frames);

}  // namespace align
