#pragma once

#include <cstdint>
#include <functional>
#include <span>

namespace app {

inline constexpr int kHeardRate = 48000;  // Hz, of all that is played

/// A recording as it is heard: where it stands on the timeline, and how loud on either side.
struct Voice {
  double startSeconds = 0;  // of its sound
  double lengthSeconds = 0;
  int soundRate = 8000;       // Hz, of the samples that are read
  float left = 1, right = 1;  // 0: not heard there
};

/// Fills `out` with the samples of voice number `voice` from its sample `first` on; before its
/// start and after its end with silence.
using VoiceReader = std::function<void(int voice, std::int64_t first, std::span<float> out)>;

/// What is heard of `voices` from frame `firstFrame` of the timeline on, kHeardRate frames a
/// second: left and right samples in turn, as many as `stereo` holds. A voice stands exactly at its
/// start: moved by a time, it sounds the same, later by that time. Nothing but the arguments
/// counts.
void mix(std::span<const Voice> voices, const VoiceReader& read, std::int64_t firstFrame,
         std::span<float> stereo);

}  // namespace app
