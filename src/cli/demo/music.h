#pragma once

#include "cli/demo/sound.h"

namespace cli::demo {

/// Adds a plucked string that plays a melody of its own from `begin` to `end` (seconds).
void addPlucked(Sound& sound, double begin, double end, Random& random);

/// Adds a bowed string with long notes and vibrato from `begin` to `end` (seconds).
void addBowed(Sound& sound, double begin, double end, Random& random);

}  // namespace cli::demo
