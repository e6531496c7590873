#pragma once

#include <functional>
#include <string>

#include "export/project.h"
#include "run/new_sounds.h"
#include "run/outcome.h"

namespace run {

/// What is done about clocks that drift: nothing, recorders are written anew, or that and cameras
/// are cut into pieces.
enum class Drift { off, sound, pieces };
Drift driftOf(const std::string& word);  // "off", "sound", "pieces"; anything else: sound

/// The converted sound of a file by its path, for finding quiet moments; empty if there is none.
using SoundOf = std::function<std::string(const std::string&)>;

/// Brings the groups of `timeline` to one clock each where a recording would be out by more than
/// 10 ms. New sound is listed among the outputs; the originals stay as they are. What stays out at
/// the clips' ends goes to the members of `outcome`; what was done, and what could not be, becomes
/// notices.
void correctClocks(timeline::Project& timeline, Drift drift, NewSounds& sounds,
                   const SoundOf& soundOf, Outcome& outcome);

/// For every camera clip a WAV file as long as its picture, with the sound of the recorder that
/// covers most of it, exactly in place; its own where none does.
void replaceAudio(const timeline::Project& timeline, NewSounds& sounds);

}  // namespace run
