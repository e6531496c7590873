#include "analysis/sound.h"

#include <algorithm>

#include "analysis/sound_file.h"

namespace analysis {

std::int64_t soundLength(const std::string& path) {
  SF_INFO info = {};
  const SoundFile file = openSoundFile(path, info);
  return file ? std::max<std::int64_t>(info.frames, 0) : 0;
}

std::vector<float> readPiece(const std::string& path, std::int64_t first, std::int64_t count) {
  std::vector<float> piece(static_cast<std::size_t>(std::max<std::int64_t>(count, 0)));
  SF_INFO info = {};
  const SoundFile file = openSoundFile(path, info);
  if (!file) return piece;
  const std::int64_t begin = std::clamp<std::int64_t>(first, 0, info.frames);
  const std::int64_t end = std::clamp<std::int64_t>(first + count, begin, info.frames);
  if (begin < end && sf_seek(file.get(), begin, SEEK_SET) == begin) {
    sf_read_float(file.get(), piece.data() + (begin - first), end - begin);
  }
  return piece;
}

}  // namespace analysis
