#pragma once

#include <string>

namespace report {

/// The user's own folder, UTF-8: the environment variable USERPROFILE, elsewhere than on Windows
/// HOME where that is not set. Empty if there is neither.
std::string profileFolder();

/// Makes `folder` (UTF-8) the profile folder of this process and of what it starts. To be called
/// before other threads run.
void useProfileFolder(const std::string& folder);

/// `path` as this system opens it: with back slashes on Windows, unchanged elsewhere, where a back
/// slash is a character like any other.
std::string nativeSlashes(const std::string& path);

/// The way back: with slashes on Windows, unchanged elsewhere.
std::string plainSlashes(std::string path);

}  // namespace report
