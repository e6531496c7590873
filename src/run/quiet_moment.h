#pragma once

#include <string>

namespace run {

/// The middle of the quietest twentieth of a second within two seconds of `seconds`, in the
/// converted sound at `path`; `seconds` itself if it cannot be read.
double quietMoment(const std::string& path, double seconds);

}  // namespace run
