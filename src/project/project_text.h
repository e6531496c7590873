#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "project/project.h"

namespace project {

/// The form of .kestrel files that this version writes, and the newest that it reads.
inline constexpr int kForm = 1;

/// The project as JSON text (docs/project.md), set in by one blank, ended by a line feed. `folder`
/// is the whole path of the folder that the file will lie in; places of files are told from there.
std::string projectText(const Project& project, const std::string& folder);

/// A project, or what is wrong with the text: a sentence that names the place.
struct ReadProject {
  std::optional<Project> project;
  std::string error;
};

/// Reads what `projectText` wrote, or what others wrote like it. `folder` is where the file lies;
/// `exists` tells of whole paths whether a file is there: one that is not where it lies from the
/// project's file is taken for where it lay when that was written. What is wrong in any part is an
/// error: no half project is returned. Touches no disk.
ReadProject readProjectText(std::string_view text, const std::string& folder,
                            const std::function<bool(const std::string&)>& exists);

}  // namespace project
