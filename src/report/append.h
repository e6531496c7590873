#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace report {

/// `text`, whose lines end in line feeds, as text files of this system have it.
std::string withSystemLineEnds(std::string_view text);

/// Appends `line` and this system's line end to the file, created if missing, as one step: lines of
/// several threads and processes never mix or overwrite each other. A file that cannot be opened
/// is skipped.
void appendWholeLine(const std::filesystem::path& path, std::string_view line);

}  // namespace report
