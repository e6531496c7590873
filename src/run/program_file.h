#pragma once

#include <string>

namespace run {

/// The whole path (UTF-8) of the program called `name`: beside this program, else in the folders of
/// PATH, but never in the working directory, which may be a camera card with any program on it. A
/// name with a folder in it is the path itself. Empty if there is none.
std::string programFile(const std::string& name);

}  // namespace run
