#include "bench/events/performance.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <string>

#include "bench/events/synthetic.h"

namespace events {
namespace {

void evenLevel(std::vector<float>& samples) {
  double power = 1e-9;
  for (const float s : samples) power += double(s) * s;
  const auto gain = static_cast<float>(0.1 / std::sqrt(power / double(samples.size())));
  for (float& s : samples) s *= gain;
}

// Takes pieces of 20 to 90 s of the library's files, each part of a file at most once.
std::vector<float> fromLibrary(std::vector<SoundFile>& files, double seconds, Random& random) {
  const auto wanted = static_cast<std::size_t>(seconds * kStageRate);
  std::vector<float> out;
  out.reserve(wanted);
  while (out.size() < wanted && !files.empty()) {
    auto& file = files[random() % files.size()];
    const auto length =
        std::min(file.left, static_cast<std::size_t>(uniform(random, 20, 90) * kStageRate));
    const auto end = file.samples->begin() + static_cast<std::ptrdiff_t>(file.left);
    std::vector<float> piece(end - static_cast<std::ptrdiff_t>(length), end);
    file.left -= length;
    evenLevel(piece);
    const double speed = uniform(random, 0.97, 1.03);
    for (double t = 0; t + 1 < double(length) && out.size() < wanted; t += speed) {
      const auto i = static_cast<std::size_t>(t);
      const auto f = static_cast<float>(t - double(i));
      out.push_back(piece[i] * (1 - f) + piece[i + 1] * f);
    }
    out.insert(out.end(), static_cast<std::size_t>(uniform(random, 0, 2) * kStageRate), 0.0f);
    std::erase_if(files, [](const auto& f) { return f.left < 5 * kStageRate; });
  }
  return out;
}

}  // namespace

std::vector<std::int16_t> readRaw(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  std::vector<std::int16_t> raw(std::filesystem::file_size(path) / 2);
  file.read(reinterpret_cast<char*>(raw.data()), static_cast<std::streamsize>(raw.size() * 2));
  return raw;
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
    const bool music = name.starts_with("music-");
    if (!music && !name.starts_with("speech-")) continue;
    const auto samples = std::make_shared<const std::vector<std::int16_t>>(readRaw(path));
    (music ? library.music : library.speech).push_back({samples, samples->size()});
  }
  return library;
}

std::vector<float> performance(SoundLibrary& library, Kind kind, double seconds, Random& random) {
  if (kind == Kind::both) {
    std::vector<float> sum = performance(library, Kind::speech, seconds, random);
    const std::vector<float> music = performance(library, Kind::music, seconds, random);
    sum.resize(std::max(sum.size(), music.size()));
    for (std::size_t i = 0; i < music.size(); ++i) sum[i] += 0.5f * music[i];
    return sum;
  }
  const bool speech = kind == Kind::speech;
  std::vector<float> sound = fromLibrary(speech ? library.speech : library.music, seconds, random);
  const double missing = seconds - double(sound.size()) / kStageRate;
  if (missing <= 0) return sound;
  std::vector<float> rest = (speech ? syntheticSpeech : syntheticMusic)(missing, random);
  evenLevel(rest);
  sound.insert(sound.end(), rest.begin(), rest.end());
  return sound;
}

}  // namespace events
