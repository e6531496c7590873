#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>

#include "report/status.h"

namespace report {

/// Paths travel as UTF-8 text and become a `path` only where a file is opened, so that any name
/// works whatever the locale and, on Windows, the code page and the length. The text of a path has
/// slashes.
std::filesystem::path fromUtf8(std::string_view text);
std::string toUtf8(const std::filesystem::path& path);

/// The text with the slashes of this system.
std::string nativeUtf8(const std::filesystem::path& path);

/// Creates or replaces the file with exactly `text`; when that fails the file is as it was before.
/// The folder must exist.
Status writeWhole(const std::filesystem::path& path, std::string_view text);

/// Moves a file over whatever file `to` is, also to another drive, where `to` is as it was until
/// all has arrived. Only one at a time may move files there into one folder. After an error both
/// files are as they were.
std::error_code moveFile(const std::filesystem::path& from, const std::filesystem::path& to);

}  // namespace report
