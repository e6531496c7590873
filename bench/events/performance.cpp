#include "bench/events/performance.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <numbers>
#include <string>

namespace events {
namespace {

void evenLevel(std::vector<float>& samples) {
  double power = 1e-9;
  for (const float s : samples) power += double(s) * s;
  const auto gain = static_cast<float>(0.1 / std::sqrt(power / double(samples.size())));
  for (float& s : samples) s *= gain;
}

// Takes pieces of 20 to 90 s of the library's files, each part of a file at most once.
std::vector<float> fromLibrary(std::vector<std::vector<float>>& files, double seconds,
                               Random& random) {
  const auto wanted = static_cast<std::size_t>(seconds * kStageRate);
  std::vector<float> out;
  out.reserve(wanted);
  while (out.size() < wanted && !files.empty()) {
    auto& file = files[random() % files.size()];
    const auto length =
        std::min(file.size(), static_cast<std::size_t>(uniform(random, 20, 90) * kStageRate));
    std::vector<float> piece(file.end() - static_cast<std::ptrdiff_t>(length), file.end());
    file.resize(file.size() - length);
    evenLevel(piece);
    const double speed = uniform(random, 0.97, 1.03);
    for (double t = 0; t + 1 < double(length) && out.size() < wanted; t += speed) {
      const auto i = static_cast<std::size_t>(t);
      const auto f = static_cast<float>(t - double(i));
      out.push_back(piece[i] * (1 - f) + piece[i + 1] * f);
    }
    out.insert(out.end(), static_cast<std::size_t>(uniform(random, 0, 2) * kStageRate), 0.0f);
    std::erase_if(files, [](const auto& f) { return f.size() < 5 * kStageRate; });
  }
  return out;
}

}  // namespace

std::vector<float> readRaw(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  std::vector<std::int16_t> raw(std::filesystem::file_size(path) / 2);
  file.read(reinterpret_cast<char*>(raw.data()), static_cast<std::streamsize>(raw.size() * 2));
  std::vector<float> samples(raw.size());
  std::ranges::transform(raw, samples.begin(), [](std::int16_t s) { return s / 32768.0f; });
  return samples;
}

double uniform(Random& random, double from, double to) {
  return from + (to - from) * double(random() >> 11) * 0x1p-53;
}

SoundLibrary loadLibrary(const std::filesystem::path& folder) {
  SoundLibrary library;
  if (!std::filesystem::is_directory(folder)) return library;
  std::vector<std::filesystem::path> paths;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) paths.push_back(entry);
  std::ranges::sort(paths);
  for (const auto& path : paths) {
    const std::string name = path.filename().string();
    if (name.starts_with("music-")) library.music.push_back(readRaw(path));
    if (name.starts_with("speech-")) library.speech.push_back(readRaw(path));
  }
  return library;
}

std::vector<float> syntheticSpeech(double seconds, Random& random) {
  std::vector<float> out(static_cast<std::size_t>(seconds * kStageRate));
  for (double t = uniform(random, 0, 0.5); t < seconds;) {
    const double length = uniform(random, 0.08, 0.28), pitch = uniform(random, 90, 240);
    const double formants[3] = {uniform(random, 250, 900), uniform(random, 900, 2300),
                                uniform(random, 2300, 3600)};
    const bool hiss = random() % 4 == 0;
    const auto first = static_cast<std::size_t>(t * kStageRate);
    const auto count = static_cast<std::size_t>(length * kStageRate);
    double phase = 0, y1[3] = {}, y2[3] = {};
    for (std::size_t i = 0; i < count && first + i < out.size(); ++i) {
      phase += pitch * (1 + 0.1 * std::sin(double(i) / 3000)) / kStageRate;
      double source = hiss ? uniform(random, -0.4, 0.4) : 0;
      if (!hiss && phase >= 1) source = 1, phase -= 1;
      double sum = 0;
      for (int k = 0; k < 3; ++k) {
        const double w = 2 * std::numbers::pi * formants[k] / kStageRate, r = 0.985 - 0.006 * k;
        const double y = source + 2 * r * std::cos(w) * y1[k] - r * r * y2[k];
        y2[k] = y1[k], y1[k] = y;
        sum += y / (k + 1);
      }
      const double envelope = std::sin(std::numbers::pi * double(i) / double(count));
      out[first + i] += static_cast<float>(0.02 * sum * envelope);
    }
    t += length + (random() % 8 == 0 ? uniform(random, 0.3, 1.5) : uniform(random, 0.0, 0.08));
  }
  return out;
}

std::vector<float> syntheticMusic(double seconds, Random& random) {
  std::vector<float> out(static_cast<std::size_t>(seconds * kStageRate));
  const double beat = uniform(random, 0.22, 0.5);
  for (double t = 0; t < seconds;
       t += beat * (random() % 3 == 0 ? 0.5 : 1) * uniform(random, 0.97, 1.03)) {
    const int voices = 1 + static_cast<int>(random() % 3);
    for (int v = 0; v < voices; ++v) {
      const double pitch = 110 * std::pow(2.0, double(random() % 36) / 12);
      const double decay = uniform(random, 2, 9), level = uniform(random, 0.03, 0.15);
      const auto first = static_cast<std::size_t>(t * kStageRate);
      for (std::size_t i = 0; i < kStageRate && first + i < out.size(); ++i) {
        const double s = double(i) / kStageRate;
        double sum = 0;
        for (int h = 1; h <= 6 && pitch * h < 7000; ++h)
          sum +=
              std::sin(2 * std::numbers::pi * pitch * h * s) / h * std::exp(-decay * s * h * 0.5);
        out[first + i] += static_cast<float>(level * sum * std::min(1.0, s * 200));
      }
    }
  }
  return out;
}

std::vector<float> performance(SoundLibrary& library, Kind kind, double seconds, Random& random) {
  const auto speech = [&] {
    auto s = library.speech.empty() ? std::vector<float>{}
                                    : fromLibrary(library.speech, seconds, random);
    if (s.size() < seconds * kStageRate) {
      const auto rest = syntheticSpeech(seconds - double(s.size()) / kStageRate, random);
      s.insert(s.end(), rest.begin(), rest.end());
    }
    return s;
  };
  const auto music = [&] {
    auto s =
        library.music.empty() ? std::vector<float>{} : fromLibrary(library.music, seconds, random);
    if (s.size() < seconds * kStageRate) {
      const auto rest = syntheticMusic(seconds - double(s.size()) / kStageRate, random);
      s.insert(s.end(), rest.begin(), rest.end());
    }
    return s;
  };
  if (kind == Kind::speech) return speech();
  if (kind == Kind::music) return music();
  std::vector<float> a = speech(), b = music();
  a.resize(std::max(a.size(), b.size()));
  for (std::size_t i = 0; i < b.size(); ++i) a[i] += 0.5f * b[i];
  return a;
}

}  // namespace events
