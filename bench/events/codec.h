#pragma once

#include <string>
#include <vector>

namespace events {

/// `samples` (mono, kRate) as they come back from a lossy encoder of ffmpeg at that bit rate, e.g.
/// "aac", "libmp3lame" or "libopus" at 32 kbit/s. The delay of encoder and decoder is taken out by
/// the container, to well under a millisecond. Throws std::runtime_error if ffmpeg fails.
std::vector<float> throughCodec(const std::vector<float>& samples, const std::string& codec,
                                int kilobits);

}  // namespace events
