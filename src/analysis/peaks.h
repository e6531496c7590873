#pragma once

#include <Eigen/Core>
#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "analysis/envelope.h"

namespace analysis {

/// A point of the spectrogram that stands out. Frames count from 0 and last 24 ms.
struct Peak {
  int frame;
  int bin;
  float value;  // of the spectrogram

  bool operator==(const Peak&) const = default;
};

/// Finds peaks above an envelope that every peak raises around itself and that falls by the factor
/// `decay` from frame to frame; at most five a frame, in the order of time and, within a frame, of
/// height. After frame t of F there are at most capacity * (t + 1) / F, so that busy sound does not
/// use up the capacity before its end.
class ForwardPeaks {
 public:
  ForwardPeaks(Eigen::Index frames, float decay, std::int64_t capacity);

  /// The next frame's kBins values. After the last one all peaks are there.
  void add(const float* spectrum);

  const std::vector<Peak>& peaks() const { return peaks_; }
  /// The frame added last.
  const std::array<float, kBins>& last() const { return last_; }

 private:
  void begin();
  void take(const float* spectrum);

  Eigen::Index frames_;
  float decay_;
  std::int64_t capacity_;
  Eigen::Index taken_ = 0;    // frames
  std::vector<float> first_;  // frames that wait for the envelope to begin with all of them
  std::optional<Envelope> envelope_;
  std::vector<Peak> peaks_;
  std::array<float, kBins> last_ = {};
};

/// Those of `peaks` (in the order of ForwardPeaks) that also stand out when the sound, `frames`
/// frames of which `last` is the last, is heard backwards, the latest first.
std::vector<Peak> backwardPeaks(Eigen::Index frames, const float* last, std::span<const Peak> peaks,
                                float decay);

}  // namespace analysis
