#pragma once

#include "export/project.h"
#include "project/project.h"

namespace timeline {

/// A project as the documents show it: every usable recording that was listened to, with all of its
/// files. Clips that are excluded are left out; those placed by a clock stand among the unsynced
/// files unless the settings want them. A group keeps its times; only where a clip stands before 0
/// is all of it moved.
Project timelineOf(const project::Project& project);

}  // namespace timeline
