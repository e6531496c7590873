#pragma once

#include <string>

#include "export/project.h"

namespace timeline {

/// One group as an OpenTimelineIO timeline. Pictures stand on whole frames at the exact rate, the
/// sound of recorders on its samples; media begin at their own timecode. Every clip has a marker
/// with its confidence. Pure: callable from any thread.
std::string otioDocument(const Project& project, const Group& group);

}  // namespace timeline
