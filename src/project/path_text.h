#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace project {

// Places of files as a project's file keeps them. Names are bytes that need not be UTF-8.

/// `path` as seen from `folder`, with slashes; both whole. None where no way leads there (another
/// drive, or one of the two is empty).
std::optional<std::string> relativePath(const std::string& path, const std::string& folder);

/// The whole path of `relative` as seen from `folder`.
std::string pathFrom(const std::string& folder, const std::string& relative);

/// "%" and all that is no printable UTF-8 as "%" and two hexadecimal digits a byte, and back.
std::string escapedPath(std::string_view path);
std::string unescapedPath(std::string_view text);

}  // namespace project
