#include "analysis/sound.h"

#include <algorithm>
#include <utility>

#include "analysis/sound_file.h"

namespace analysis {

std::int64_t soundLength(const std::string& path) {
  SF_INFO info = {};
  const SoundFile file = openSoundFile(path, info);
  return file ? std::max<std::int64_t>(info.frames, 0) : 0;
}

std::optional<std::vector<float>> pieceOf(const std::string& path, std::int64_t first,
                                          std::int64_t count) {
  std::vector<float> piece(static_cast<std::size_t>(std::max<std::int64_t>(count, 0)));
  SF_INFO info = {};
  const SoundFile file = openSoundFile(path, info);
  if (!file) return std::nullopt;
  const std::int64_t begin = std::clamp<std::int64_t>(first, 0, info.frames);
  const std::int64_t end = std::clamp<std::int64_t>(first + count, begin, info.frames);
  if (begin >= end) return piece;
  const bool read =
      sf_seek(file.get(), begin, SEEK_SET) == begin &&
      sf_read_float(file.get(), piece.data() + (begin - first), end - begin) == end - begin;
  return read ? std::optional(std::move(piece)) : std::nullopt;
}

std::vector<float> readPiece(const std::string& path, std::int64_t first, std::int64_t count) {
  auto piece = pieceOf(path, first, count);
  if (piece) return std::move(*piece);
  return std::vector<float>(static_cast<std::size_t>(std::max<std::int64_t>(count, 0)));
}

}  // namespace analysis
