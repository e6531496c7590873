#pragma once

#include "project/project.h"

namespace project {

/// Places by their device's clock what no sound places, each clip "to about 2 s": at least two
/// clips of the device that sound or hand have placed in one group tell how its clock stands to the
/// group's timeline and how far it can be trusted. The clock is the time that the files tell of
/// their beginning, or where one of a device tells none, the time at which the files were finished.
/// Clips that were placed so before are placed anew. None stands over another of its device; a
/// device whose clock jumps places none.
Project placeByClock(Project project);

}  // namespace project
