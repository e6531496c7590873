#include "app/listen/mix.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace app {
namespace {

constexpr int kAround = 2;  // samples on either side of one that stands between two

/// The curve through four samples at `t`, 0 to 1, between the middle two (Catmull and Rom).
float between(const float* s, float t) {
  const float a = 1.5f * (s[1] - s[2]) + 0.5f * (s[3] - s[0]);
  const float b = s[0] - 2.5f * s[1] + 2 * s[2] - 0.5f * s[3];
  const float c = 0.5f * (s[2] - s[0]);
  return ((a * t + b) * t + c) * t + s[1];
}

/// Where the timeline's frame stands in the samples of a voice.
double sampleAt(const Voice& voice, std::int64_t frame) {
  return (static_cast<double>(frame) / kHeardRate - voice.startSeconds) * voice.soundRate;
}

void add(const Voice& voice, int number, const VoiceReader& read, std::int64_t firstFrame,
         std::span<float> stereo) {
  const auto frames = static_cast<std::int64_t>(stereo.size() / 2);
  const auto first = static_cast<std::int64_t>(std::floor(sampleAt(voice, firstFrame))) - kAround;
  const auto last =
      static_cast<std::int64_t>(std::floor(sampleAt(voice, firstFrame + frames))) + kAround;
  if (last < 0 || double(first) > voice.lengthSeconds * voice.soundRate) return;
  std::vector<float> samples(static_cast<std::size_t>(last - first + 1));
  read(number, first, samples);
  for (std::int64_t i = 0; i < frames; ++i) {
    const double at = sampleAt(voice, firstFrame + i) - double(first);
    const double whole = std::floor(at);
    const float value =
        between(&samples[static_cast<std::size_t>(whole) - 1], static_cast<float>(at - whole));
    stereo[2 * i] += voice.left * value;
    stereo[2 * i + 1] += voice.right * value;
  }
}

}  // namespace

void mix(std::span<const Voice> voices, const VoiceReader& read, std::int64_t firstFrame,
         std::span<float> stereo) {
  std::ranges::fill(stereo, 0.0f);
  for (std::size_t i = 0; i < voices.size(); ++i)
    if (voices[i].left != 0 || voices[i].right != 0)
      add(voices[i], static_cast<int>(i), read, firstFrame, stereo);
  for (float& sample : stereo) sample = std::clamp(sample, -1.0f, 1.0f);
}

}  // namespace app
