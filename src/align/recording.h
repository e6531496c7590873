#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

namespace align {

inline constexpr int kSampleRate = 8000;  // Hz

/// One recording as the placement sees it. Index in the list = file index of the votes.
struct Recording {
  std::string name;      // for messages
  std::int64_t samples;  // exact length at kSampleRate; 0 = no sound (the dummy, a marker)
  int device = -1;       // recordings of one device (>= 0) never overlap; -1 = a device of its own
};

/// What a reader throws of a recording that cannot be read; whatever asked for it gives up.
class UnreadableSound : public std::runtime_error {
 public:
  explicit UnreadableSound(int recording)
      : std::runtime_error("the sound of recording " + std::to_string(recording) +
                           " cannot be read"),
        file(recording) {}
  const int file;
};

/// Reads `count` samples (mono, 8000 Hz, full scale 1.0) of recording `file` from sample `first`
/// on; samples before the start or past the end are 0. Callable from any thread.
using SoundReader =
    std::function<std::vector<float>(int file, std::int64_t first, std::int64_t count)>;

inline double secondsOf(const Recording& recording) {
  return double(recording.samples) / kSampleRate;
}

/// Seconds that two recordings share if the second starts so long after the first; below 0 where
/// they do not meet.
inline double overlapAt(double offsetSeconds, const Recording& first, const Recording& second) {
  return std::min(secondsOf(first), offsetSeconds + secondsOf(second)) -
         std::max(0.0, offsetSeconds);
}

/// Whether two recordings, by index, may hear the same at the same time.
inline bool comparable(std::span<const Recording> recordings, int a, int b) {
  const Recording &x = recordings[std::size_t(a)], &y = recordings[std::size_t(b)];
  return a != b && x.samples > 0 && y.samples > 0 && (x.device < 0 || x.device != y.device);
}

}  // namespace align
