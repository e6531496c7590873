#pragma once

#include <string>

namespace run {

/// The folder that the running program's file lies in, UTF-8 with slashes of this system and none
/// at the end, links followed; empty if the system does not tell.
std::string ownFolder();

/// On Windows ffmpeg.exe is looked for in the working directory alone: makes the own folder the
/// working directory. Elsewhere does nothing. Names from the user are to be made whole before.
void workInOwnFolder();

}  // namespace run
