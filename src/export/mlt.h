#pragma once

#include <string>

#include "export/project.h"

namespace timeline {

/// One group as MLT XML, which Kdenlive and Shotcut open and melt plays: a video and an audio track
/// for each device, all sounds mixed. Positions are whole frames of the run's rate. Pure.
std::string mltDocument(const Project& project, const Group& group);

}  // namespace timeline
