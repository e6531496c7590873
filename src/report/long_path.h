#pragma once

#include <string>
#include <string_view>

namespace report {

/// Windows opens a path of 260 characters and more only in the form "\\?\C:\a\b" or
/// "\\?\UNC\server\share\a", unless a switch of the system that is seldom on says otherwise.
/// `path` is whole, begins with a drive or a share and has back slashes only. Pure.
std::string extendedPath(std::string_view path);

/// The same path as people write it; any other path is unchanged. Pure.
std::string plainPath(std::string_view path);

/// `path` in the form in which this system opens it: on Windows the extended one if it is long,
/// elsewhere unchanged.
std::string openablePath(const std::string& path);

/// The way back from there, for texts.
std::string shownPath(const std::string& path);

}  // namespace report
