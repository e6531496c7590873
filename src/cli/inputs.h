#pragma once

#include <string>
#include <vector>

#include "cli/arguments.h"

namespace cli {

/// What a run works on.
struct Inputs {
  project::Project project;          // the one that was named, with the devices of --devices-in
  std::vector<std::string> entries;  // the rest: whole paths, UTF-8, and device group markers
  std::vector<project::Id> again;    // recordings of the project to place alone; empty: all
  std::vector<std::string> notices;  // folders without media, files that moved: sentences
  std::string error;                 // what cannot be read or found; else empty
  bool cannotOpen = false;           // the error is a project's, not one of usage
};

/// Expands what was named into files: devices first, each between its markers, then lists, then the
/// rest. Folders give the media files in and below them by name, hidden ones and the converted
/// sounds of another run left out. A file that does not exist is kept; the run says so. At most one
/// project may be among the entries.
Inputs collectInputs(const Arguments& arguments);

/// Opens a project and says which of its files have moved or are missing. Empty with `inputs.error`
/// set where it cannot be opened.
void openProject(const std::string& path, Inputs& inputs);

}  // namespace cli
