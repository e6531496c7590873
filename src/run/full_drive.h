#pragma once

#include <string>

#include "run/process.h"

namespace run {

/// For a program that has just written `file`: notes in its result whether it failed because the
/// drive of that file is full, which programs do not name on every system.
void noteFullDrive(const std::string& file, ProcessResult& result);

}  // namespace run
