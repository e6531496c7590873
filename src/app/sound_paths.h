#pragma once

#include <map>
#include <string>

#include "project/project.h"
#include "run/outcome.h"

namespace app {

/// Where the kept sound of a media file can be read (8000 Hz, mono), by the media file's path; both
/// UTF-8. A file that is not in it cannot be heard or drawn.
using SoundPaths = std::map<std::string, std::string>;

/// Where the last run on `project` has kept its sounds, as far as they are still there. Of files
/// that share a name only one was kept; they are left out.
SoundPaths keptSounds(const project::Project& project);

/// Where the sounds of a run can be read.
SoundPaths soundsOf(const run::Outcome& outcome);

}  // namespace app
