#pragma once

#include <string>

#include "project/project.h"

namespace project {

/// What is wrong in a project, in words for people: numbers that two things share, clips and pairs
/// of recordings that do not exist, recordings without a file, lengths, rates and streams that no
/// file can have. Empty if nothing is.
std::string problemOf(const Project& project);

}  // namespace project
