#pragma once

#include <map>
#include <span>
#include <vector>

#include "matching/matches.h"
#include "matching/texture.h"

namespace matching {

/// Looks for offsets in the sound itself where the votes show nothing. Keeps the textures it has
/// made (6 MB for an hour of sound). `prepare` may be called from one thread at a time, `suspect`
/// from any once both files are prepared.
class TextureSearch {
 public:
  TextureSearch(std::span<const Recording> recordings, const SoundReader& sound);
  void prepare(std::span<const int> files);
  Suspicion suspect(int first, int second) const;

 private:
  std::span<const Recording> recordings_;
  const SoundReader& sound_;
  std::map<int, Texture> textures_;
};

}  // namespace matching
