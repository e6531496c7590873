#pragma once

#include <string>

namespace app {

/// The process's current working directory as UTF-8 text, with "/" between folders; "X" if it
/// cannot be read.
std::string workingDirectory();

}  // namespace app
