#pragma once

#include <string>

#include "export/project.h"

namespace timeline {

/// One group as a Reaper project: a track for each device, every item to the sample; a clock that
/// drifts becomes a play rate. Pure.
std::string reaperProject(const Project& project, const Group& group);

}  // namespace timeline
