#include "analysis/sample_source.h"

#include <algorithm>

#include "analysis/sound.h"

namespace analysis {
namespace {

/// What of `piece`, which begins with sample `first`, lies inside a recording of `length` samples;
/// the rest of it is set to 0.
std::span<float> insideOf(std::span<float> piece, std::int64_t first, std::int64_t length) {
  const auto count = static_cast<std::int64_t>(piece.size());
  const std::int64_t begin = std::clamp<std::int64_t>(-first, 0, count);
  const std::int64_t end = std::clamp<std::int64_t>(length - first, begin, count);
  std::fill_n(piece.begin(), begin, 0.0f);
  std::fill(piece.begin() + end, piece.end(), 0.0f);
  return piece.subspan(static_cast<std::size_t>(begin), static_cast<std::size_t>(end - begin));
}

}  // namespace

void SamplesInMemory::read(std::int64_t first, std::span<float> piece) {
  const std::span<float> inside = insideOf(piece, first, length());
  if (inside.empty()) return;
  const auto begin = samples_.begin() + std::max<std::int64_t>(first, 0);
  std::copy_n(begin, inside.size(), inside.begin());
}

SamplesInFile::SamplesInFile(const std::string& path) {
  SF_INFO info = {};
  file_ = openSoundFile(path, info);
  if (file_) length_ = std::max<std::int64_t>(info.frames, 0);
}

void SamplesInFile::read(std::int64_t first, std::span<float> piece) {
  std::span<float> inside = insideOf(piece, first, length_);
  if (inside.empty()) return;
  const std::int64_t begin = std::max<std::int64_t>(first, 0);
  if (begin != position_) position_ = sf_seek(file_.get(), begin, SEEK_SET);
  std::int64_t got = 0;
  if (position_ == begin)
    got = sf_read_float(file_.get(), inside.data(), static_cast<sf_count_t>(inside.size()));
  std::ranges::fill(inside.subspan(static_cast<std::size_t>(got)), 0.0f);
  position_ = begin + got;
}

float SamplesInFile::wholeSeconds() const { return static_cast<float>(length_ / kSampleRate); }

}  // namespace analysis
