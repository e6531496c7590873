#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace analysis {

inline constexpr int kSampleRate = 8000;  // Hz; every recording is converted to it first

/// One converted recording in memory: mono, kSampleRate, full scale 1.0.
struct Sound {
  bool opened = false;
  std::int64_t frames = 0;          // samples that the file reports
  std::vector<float> samples = {};  // as many as `frames`; 0 where the file could not be read

  /// Neither the file nor a second of sound is there, so there is nothing to analyse.
  bool empty() const { return !opened && frames < kSampleRate; }
  /// Whole seconds, cut rather than rounded.
  float wholeSeconds() const { return static_cast<float>(frames / kSampleRate); }
};

/// Reads the whole WAV file. `path` is UTF-8 on every platform. An unreadable file gives a sound
/// that is `empty`. Callable from several threads at once, as are the two below.
Sound readSound(const std::string& path);

/// Exact number of samples of the WAV file; 0 if it cannot be read.
std::int64_t soundLength(const std::string& path);

/// Samples `first` to `first + count - 1` of the WAV file; those outside of it are 0.
std::vector<float> readPiece(const std::string& path, std::int64_t first, std::int64_t count);

}  // namespace analysis
