#include "matching/search.h"

#include <algorithm>

namespace matching {
namespace {

constexpr int kOffsets = 3, kMoreOffsets = 10;
constexpr double kRelated = 6;       // from here on the pair is likely related, perhaps repeatedly
constexpr double kStrong = 3.8;      // what chance rarely gives at the best of many offsets
constexpr double kLeastOverlap = 4;  // seconds; two textures share that much by chance anywhere

}  // namespace

TextureSearch::TextureSearch(std::span<const Recording> recordings, const SoundReader& sound)
    : recordings_(recordings), sound_(sound) {}

void TextureSearch::prepare(std::span<const int> files) {
  std::vector<int> wanted;
  for (const int file : files)
    if (!textures_.contains(file) && std::ranges::find(wanted, file) == wanted.end())
      wanted.push_back(file);
  std::vector<Texture> made(wanted.size());
#pragma omp parallel for schedule(dynamic)
  for (std::size_t i = 0; i < wanted.size(); ++i)
    made[i] = textureOf(sound_(wanted[i], 0, recordings_[std::size_t(wanted[i])].samples));
  for (std::size_t i = 0; i < wanted.size(); ++i) textures_[wanted[i]] = std::move(made[i]);
}

Suspicion TextureSearch::suspect(int first, int second) const {
  Suspicion s{first, second, {}, 0};
  for (const Resemblance& r :
       resemblances(textures_.at(first), textures_.at(second), kMoreOffsets, kLeastOverlap)) {
    if (std::ssize(s.offsets) >= (s.significance < kRelated ? kOffsets : kMoreOffsets)) break;
    if (r.strength < kStrong) break;
    s.offsets.push_back(r.offsetSeconds);
    s.significance = std::max(s.significance, r.strength);
  }
  return s;
}

}  // namespace matching
