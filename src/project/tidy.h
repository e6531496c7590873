#pragma once

#include "project/project.h"

namespace project {

/// Brings a changed project in order: clips by start, no empty groups and devices, no clips and
/// evidence of recordings that are gone.
void tidy(Project& project);

/// "Group 3", with a number that no group is called by.
std::string freshGroupName(const Project& project);

}  // namespace project
