#pragma once

#include "export/project.h"
#include "run/joined_sound.h"
#include "run/new_sounds.h"

namespace run {

/// The best sound there is for a camera's clip, as long as its picture and by its clock: that of
/// recorders, the one that covers most of it first, and where none sounds the camera's own. The
/// clip stands in `group`; a sound without parts means that there is none. Pure.
JoinedSound replacementOf(const timeline::Project& timeline, const timeline::Group& group,
                          const timeline::Clip& camera);

/// For every camera clip of the groups a WAV file of that, called after the clip.
void replaceAudio(const timeline::Project& timeline, NewSounds& sounds);

}  // namespace run
