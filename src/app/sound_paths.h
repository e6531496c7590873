#pragma once

#include <map>
#include <string>

#include "project/project.h"
#include "run/outcome.h"

namespace app {

/// Where the kept sound of a media file can be read (8000 Hz, mono), by the media file's path; both
/// UTF-8. A file that is not in it cannot be heard or drawn.
using SoundPaths = std::map<std::string, std::string>;

/// Where the sounds of `project` are still kept: beside the results of its last run, or among what
/// this user's runs have heard. Beside the results only one of several files that share a name was
/// kept.
SoundPaths keptSounds(const project::Project& project);

/// Where the sounds of a run can be read.
SoundPaths soundsOf(const run::Outcome& outcome);

}  // namespace app
