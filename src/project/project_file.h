#pragma once

#include <optional>
#include <string>
#include <vector>

#include "project/project.h"
#include "report/status.h"

namespace project {

/// The ending of projects' files.
inline constexpr char kEnding[] = ".kestrel";

/// Whether a path is called like a project, in any case of letters.
bool isProjectPath(const std::string& path);

/// Writes the project whole or not at all. `path` is a whole path; what lies there is replaced.
report::Status saveProject(const Project& project, const std::string& path);

struct LoadedProject {
  std::optional<Project> project;
  std::string error;                 // a sentence with the file's name; else empty
  std::vector<std::string> missing;  // recordings' files that were not found again
  std::vector<std::string> moved;    // those found elsewhere: their new places
};

/// Reads a project. Files that do not lie where they were are looked for by name and length: beside
/// those that are there, and in the project's folder and below.
LoadedProject loadProject(const std::string& path);

/// Looks for files that do not lie where they were, by name and length, in `folders` and below, and
/// puts the places of those found into the project. Returns their new places.
std::vector<std::string> findAgain(Project& project, const std::vector<std::string>& folders);

/// The files of recordings that are not there or that have another length than when they were
/// heard.
std::vector<std::string> missingFiles(const Project& project);

}  // namespace project
