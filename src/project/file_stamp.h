#pragma once

#include "project/project.h"

namespace project {

/// Notes the length and time of the file at its path; 0 where they cannot be told.
void stamp(MediaFile& file);

}  // namespace project
