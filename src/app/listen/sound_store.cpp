#include "app/listen/sound_store.h"

#include <algorithm>
#include <vector>

namespace app {
namespace {

constexpr std::size_t kMostOpen = 64;  // well below what systems allow a program

}  // namespace

SoundStore::Open& SoundStore::open(const std::string& path) {
  const auto known = files_.find(path);
  if (known != files_.end()) return known->second;
  if (files_.size() >= kMostOpen) files_.clear();
  Open opened;
  opened.file = analysis::openSoundFile(path, opened.info);
  return files_[path] = std::move(opened);
}

void SoundStore::read(const std::string& path, std::int64_t first, std::span<float> out) {
  std::ranges::fill(out, 0.0f);
  Open& sound = open(path);
  const std::int64_t begin = std::max<std::int64_t>(first, 0);
  const auto end =
      std::min<std::int64_t>(first + static_cast<std::int64_t>(out.size()), sound.info.frames);
  if (!sound.file || begin >= end || sf_seek(sound.file.get(), begin, SEEK_SET) < 0) return;
  const int channels = sound.info.channels;
  float* target = out.data() + (begin - first);
  if (channels == 1) {
    sf_readf_float(sound.file.get(), target, end - begin);
    return;
  }
  std::vector<float> all(static_cast<std::size_t>((end - begin) * channels));
  const sf_count_t frames = sf_readf_float(sound.file.get(), all.data(), end - begin);
  for (sf_count_t i = 0; i < frames; ++i) target[i] = all[static_cast<std::size_t>(i * channels)];
}

}  // namespace app
