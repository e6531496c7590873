#include "bench/events/cache.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <fstream>
#include <functional>
#include <optional>

namespace events {
namespace {

namespace fs = std::filesystem;
using Sounds = std::vector<std::vector<float>>;

std::string hexOf(std::size_t number) {
  char text[20];
  std::snprintf(text, sizeof text, "%016zx", number);
  return text;
}

std::string fingerprintOf(const fs::path& sounds) {
  std::vector<std::string> facts{GENERATOR};  // hash of the generator's sources, from the build
  if (fs::is_directory(sounds))
    for (const auto& entry : fs::directory_iterator(sounds))
      if (entry.path().extension() == ".raw")
        facts.push_back(entry.path().filename().string() + std::to_string(entry.file_size()));
  std::ranges::sort(facts);
  std::string all;
  for (const std::string& fact : facts) all += fact + "\n";
  return hexOf(std::hash<std::string>{}(all));
}

// A file of a set: how many sounds, how many samples each has, then all samples in 16 bits, which
// is what rendered sounds are made of.
void write(const fs::path& path, const Sounds& sounds) {
  fs::create_directories(path.parent_path());
  const fs::path part = path.string() + "." + hexOf(std::random_device{}());
  std::ofstream file(part, std::ios::binary);
  const auto put = [&](const auto* data, std::size_t count) {
    file.write(reinterpret_cast<const char*>(data), std::streamsize(count * sizeof *data));
  };
  std::vector<std::uint64_t> head{sounds.size()};
  for (const auto& sound : sounds) head.push_back(sound.size());
  put(head.data(), head.size());
  for (const auto& sound : sounds) {
    std::vector<std::int16_t> raw(sound.size());
    std::ranges::transform(sound, raw.begin(),
                           [](float s) { return std::int16_t(std::lround(s * 32768)); });
    put(raw.data(), raw.size());
  }
  file.close();
  if (file)
    fs::rename(part, path);
  else
    fs::remove(part);  // a full disk costs time, nothing else
}

std::optional<Sounds> read(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  const auto get = [&](auto* data, std::size_t count) {
    file.read(reinterpret_cast<char*>(data), std::streamsize(count * sizeof *data));
  };
  std::uint64_t count = 0;
  get(&count, 1);
  if (!file) return std::nullopt;
  std::vector<std::uint64_t> lengths(count);
  get(lengths.data(), lengths.size());
  Sounds sounds;
  for (const std::uint64_t length : lengths) {
    std::vector<std::int16_t> raw(length);
    get(raw.data(), raw.size());
    std::ranges::transform(raw, std::back_inserter(sounds.emplace_back()),
                           [](std::int16_t s) { return s / 32768.0f; });
  }
  if (!file) return std::nullopt;
  return sounds;
}

}  // namespace

Renderer::Renderer(fs::path sounds, fs::path cache)
    : sounds_(std::move(sounds)), cache_(std::move(cache)), fingerprint_(fingerprintOf(sounds_)) {}

const SoundLibrary& Renderer::library() {
  std::call_once(loaded_, [this] { library_ = loadLibrary(sounds_); });
  return library_;
}

fs::path Renderer::fileOf(const std::string& kind, unsigned seed) const {
  return cache_ / (kind + "-" + std::to_string(seed) + "-" + fingerprint_ + ".sounds");
}

RenderedSet Renderer::operator()(const std::string& kind, unsigned seed) {
  Random random(seed);
  RenderedSet rendered{makeSet(kind, random), {}};
  if (!cache_.empty())
    if (auto kept = read(fileOf(kind, seed))) return {rendered.set, std::move(*kept)};
  rendered.sounds = renderAll(rendered.set, library(), random);
  if (!cache_.empty()) write(fileOf(kind, seed), rendered.sounds);
  return rendered;
}

}  // namespace events
