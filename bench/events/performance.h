#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <random>
#include <vector>

namespace events {

inline constexpr int kStageRate = 16000;  // Hz; what happens on the stage, before any microphone
inline constexpr int kRate = 8000;        // Hz; what the recordings are rendered at

using Random = std::mt19937_64;

struct Span {
  double from, to;  // seconds
};

/// A file of sound at kStageRate, of which the last samples may be used up. Copies share the sound.
struct SoundFile {
  std::shared_ptr<const std::vector<std::int16_t>> samples;
  std::size_t left = 0;
};

/// Real sound to draw on: music-*.raw and speech-*.raw (mono, 16 bit, 16 kHz). Both empty where
/// the folder has none; performances are then synthetic.
struct SoundLibrary {
  std::vector<SoundFile> music, speech;
};
SoundLibrary loadLibrary(const std::filesystem::path& folder);

/// The numbers of a file of 16 bit numbers.
std::vector<std::int16_t> readRaw(const std::filesystem::path& path);

enum class Kind { speech, music, both };

/// `seconds` of one event's sound at kStageRate. Pieces of the library in random order, at random
/// speeds within 3 %, with pauses. Takes what it uses out of the library, so that no sound occurs
/// twice in a set. Synthetic where the library is empty.
std::vector<float> performance(SoundLibrary& library, Kind kind, double seconds, Random& random);

double uniform(Random& random, double from, double to);

}  // namespace events
