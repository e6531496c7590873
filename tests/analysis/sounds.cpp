#include "tests/analysis/sounds.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <numbers>
#include <random>

namespace sounds {
namespace {

constexpr double kRate = 8000;

double wave(double hertz, std::size_t sample) {
  return std::sin(2 * std::numbers::pi * hertz * static_cast<double>(sample) / kRate);
}

// A tone with overtones that dies away, added to `out`.
void pluck(Samples& out, std::size_t start, double hertz, float level) {
  const std::size_t end = std::min(out.size(), start + 6000);
  for (std::size_t i = start; i < end; ++i) {
    const double fade = std::exp(-static_cast<double>(i - start) / 1500);
    const double tone = wave(hertz, i) + 0.5 * wave(2 * hertz, i) + 0.25 * wave(3 * hertz, i);
    out[i] += level * static_cast<float>(fade * tone);
  }
}

void drum(Samples& out, std::size_t start, std::mt19937& random) {
  std::uniform_real_distribution<float> hiss(-0.3f, 0.3f);
  const std::size_t end = std::min(out.size(), start + 800);
  for (std::size_t i = start; i < end; ++i) {
    out[i] += hiss(random) * std::exp(-static_cast<float>(i - start) / 150);
  }
}

template <typename Number>
void put(std::ostream& file, Number number) {
  file.write(reinterpret_cast<const char*>(&number), sizeof number);
}

}  // namespace

Samples silence(std::size_t length) { return Samples(length, 0.0f); }

Samples noise(std::size_t length, unsigned seed) {
  return heardWithNoise(silence(length), 1, 0.3f, seed);
}

Samples tone(std::size_t length, double hertz) {
  Samples out(length);
  for (std::size_t i = 0; i < length; ++i) out[i] = 0.5f * static_cast<float>(wave(hertz, i));
  return out;
}

Samples clicks(std::size_t length, std::size_t every) {
  Samples out(length);
  for (std::size_t i = 0; i < length; i += every) out[i] = 1;
  return out;
}

Samples music(std::size_t length, unsigned seed) {
  std::mt19937 random(seed);
  std::uniform_int_distribution<int> semitone(0, 36);
  Samples out(length);
  for (std::size_t beat = 0; beat < length; beat += 2000) {
    for (int voice = 0; voice < 3; ++voice) {
      pluck(out, beat, 110 * std::exp2(semitone(random) / 12.0), 0.12f);
    }
    drum(out, beat, random);
  }
  return out;
}

Samples speech(std::size_t length, unsigned seed) {
  std::mt19937 random(seed);
  std::uniform_int_distribution<std::size_t> pause(200, 3000), syllable(600, 2400);
  std::uniform_real_distribution<double> pitch(90, 220), formant(300, 2800);
  Samples out(length);
  for (std::size_t start = pause(random); start < length; start += pause(random)) {
    const std::size_t end = std::min(length, start + syllable(random));
    const double buzz = pitch(random), first = formant(random), second = formant(random);
    for (std::size_t i = start; i < end; ++i) {
      const double open = std::pow(0.5 + 0.5 * wave(buzz, i), 4);
      out[i] = static_cast<float>(0.3 * open * (wave(first, i) + 0.5 * wave(second, i)));
    }
    start = end;
  }
  return out;
}

Samples clipped(Samples sound) {
  for (float& sample : sound) sample = std::clamp(20 * sample, -1.0f, 1.0f);
  return sound;
}

Samples heardWithNoise(Samples sound, float gain, float noiseLevel, unsigned seed) {
  std::mt19937 random(seed);
  std::uniform_real_distribution<float> hiss(-noiseLevel, noiseLevel);
  for (float& sample : sound) sample = gain * sample + hiss(random);
  return sound;
}

void writeWav(const std::string& path, const Samples& samples) {
  std::ofstream file(std::filesystem::path(std::u8string(path.begin(), path.end())),
                     std::ios::binary);
  const auto bytes = static_cast<std::uint32_t>(2 * samples.size());
  file << "RIFF";
  put<std::uint32_t>(file, 36 + bytes);
  file << "WAVEfmt ";
  put<std::uint32_t>(file, 16);     // length of the format that follows
  put<std::uint16_t>(file, 1);      // whole numbers
  put<std::uint16_t>(file, 1);      // channel
  put<std::uint32_t>(file, 8000);   // samples a second
  put<std::uint32_t>(file, 16000);  // bytes a second
  put<std::uint16_t>(file, 2);      // bytes a sample
  put<std::uint16_t>(file, 16);     // bits a sample
  file << "data";
  put(file, bytes);
  for (const float sample : samples) {
    put(file, static_cast<std::int16_t>(std::lrint(32767 * std::clamp(sample, -1.0f, 1.0f))));
  }
}

std::string utf8(const std::filesystem::path& path) {
  const std::u8string text = path.u8string();
  return {text.begin(), text.end()};
}

}  // namespace sounds
