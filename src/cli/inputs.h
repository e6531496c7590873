#pragma once

#include <string>
#include <vector>

#include "cli/arguments.h"

namespace cli {

/// The file list of a run.
struct Inputs {
  std::vector<std::string> entries;  // whole paths, UTF-8, and device group markers
  std::vector<std::string> notices;  // folders without media: sentences
  std::string error;                 // a list that cannot be read; else empty
};

/// Expands what was named into files: devices first, each between its markers, then lists, then the
/// rest. Folders give the media files in and below them by name, hidden ones and the converted
/// sounds of another run left out. A file that does not exist is kept; the run says so.
Inputs collectInputs(const Arguments& arguments);

}  // namespace cli
