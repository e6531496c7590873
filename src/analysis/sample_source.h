#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "analysis/sound.h"
#include "analysis/sound_file.h"

namespace analysis {

/// One recording (mono, kSampleRate, full scale 1.0) that is read piece by piece, so that a long
/// one takes no more memory than a short one. Not for several threads at once.
class SampleSource {
 public:
  virtual ~SampleSource() = default;
  virtual std::int64_t length() const = 0;
  /// Fills `piece` with the samples from `first` on; they are 0 outside of the recording.
  virtual void read(std::int64_t first, std::span<float> piece) = 0;
};

/// Samples that somebody else keeps.
class SamplesInMemory final : public SampleSource {
 public:
  explicit SamplesInMemory(std::span<const float> samples) : samples_(samples) {}
  std::int64_t length() const override { return static_cast<std::int64_t>(samples_.size()); }
  void read(std::int64_t first, std::span<float> piece) override;

 private:
  std::span<const float> samples_;
};

/// A WAV file. `path` is UTF-8 on every platform.
class SamplesInFile final : public SampleSource {
 public:
  explicit SamplesInFile(const std::string& path);
  std::int64_t length() const override { return length_; }
  /// What the file announces but does not have (it was cut) is 0.
  void read(std::int64_t first, std::span<float> piece) override;

  /// The file could not be opened, so there is nothing to analyse.
  bool empty() const { return file_ == nullptr; }
  /// Whole seconds, cut rather than rounded.
  float wholeSeconds() const;

 private:
  SoundFile file_;
  std::int64_t length_ = 0;
  std::int64_t position_ = 0;  // of the sample that the file gives next
};

}  // namespace analysis
