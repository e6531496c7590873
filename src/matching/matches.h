#pragma once

#include <optional>
#include <span>
#include <vector>

#include "matching/alignment.h"
#include "matching/placement.h"
#include "matching/suspicion.h"
#include "matching/textures.h"

namespace matching {

/// A pair of recordings that hear the same thing, as the sound itself says.
struct Match {
  Alignment best;
  std::vector<Alignment> rivals;  // other offsets at which the sound fits too: repeated music
};

/// Listens at every supposed offset, where those turn out to be repetitions at all others that may
/// be, and keeps the best that can be believed. Callable from any thread; the textures of both
/// files must be prepared.
std::optional<Match> examine(const Suspicion& suspicion, std::span<const Recording> recordings,
                             const SoundReader& sound, const Textures& textures);

}  // namespace matching
