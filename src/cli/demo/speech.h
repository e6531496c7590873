#pragma once

#include "cli/demo/sound.h"

namespace cli::demo {

/// Adds somebody talking to `sound` from `begin` to `end` (seconds): phrases of syllables with
/// pauses between them, each a pulse train or a burst of noise shaped by three formants.
void addSpeech(Sound& sound, double begin, double end, Random& random);

}  // namespace cli::demo
