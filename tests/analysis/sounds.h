#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace sounds {

/// Sounds made on the spot: mono, 8000 Hz, full scale 1.0, the same for the same seed.
using Samples = std::vector<float>;

Samples silence(std::size_t length);
Samples noise(std::size_t length, unsigned seed);
Samples tone(std::size_t length, double hertz);
Samples clicks(std::size_t length, std::size_t every);

/// Chords of plucked tones, four beats a second, above a drum.
Samples music(std::size_t length, unsigned seed);

/// Syllables of a buzzing voice between pauses.
Samples speech(std::size_t length, unsigned seed);

/// Much louder than full scale allows, cut off there.
Samples clipped(Samples sound);

/// `sound` as a device hears it: `gain` times as loud, with noise of its own.
Samples heardWithNoise(Samples sound, float gain, float noiseLevel, unsigned seed);

/// Stores a mono WAV file of 8000 Hz with 16 bits a sample. `path` is UTF-8.
void writeWav(const std::string& path, const Samples& samples);

/// A path as UTF-8, whatever the platform's own text for file names is.
std::string utf8(const std::filesystem::path& path);

}  // namespace sounds
