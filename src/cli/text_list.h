#pragma once

#include <string>
#include <vector>

namespace cli {

/// The lines of a file list, or what is wrong with it.
struct TextList {
  std::vector<std::string> lines;  // UTF-8, without line ends and empty lines
  std::string error;               // a piece of a sentence such as "is no text"; else empty
};

/// The lines of a text in UTF-8, or in UTF-16 with a byte order mark, as PowerShell writes it.
/// Pure.
TextList linesOf(std::string text);

/// Reads a list of at most a few megabytes; "-" is standard input.
TextList readList(const std::string& path);

}  // namespace cli
