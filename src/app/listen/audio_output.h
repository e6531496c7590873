#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <span>

namespace app {

/// Where sound goes: the system's loudspeakers, or what a test puts in their place.
class AudioOutput {
 public:
  /// Fills the whole span with left and right samples in turn, kHeardRate frames a second. Called
  /// from a thread of the output's own until `stop` has returned.
  using Fill = std::function<void(std::span<float> stereo)>;

  virtual ~AudioOutput() = default;
  /// Begins to play. False if there is no device, or it refuses.
  virtual bool start(Fill fill) = 0;
  virtual void stop() = 0;
  /// The frames that have been heard since `start`.
  virtual std::int64_t framesHeard() const = 0;
};

/// The system's preferred device. Never null; without a device, `start` is false.
std::unique_ptr<AudioOutput> systemAudio();

}  // namespace app
