#pragma once

#include <string>
#include <vector>

#include "run/material.h"
#include "run/media_probe.h"

namespace run {

/// Outside programs that a run had to do without; empty texts if they are there.
struct MissingPrograms {
  std::string ffmpeg;  // what the system answered when it was started
  bool mediaInfo = false;
};

/// Looks at the dummy entry, whose conversion starts ffmpeg like every other.
MissingPrograms missingPrograms(const std::vector<Entry>& entries, MediaProbe& probe);

/// Sentences about missing programs and about a list with too few usable files to compare.
std::vector<std::string> noticesOf(const MissingPrograms& missing,
                                   const std::vector<Entry>& usable);

/// Where the results are, if the desktop that the user sees has been moved to `desktop`; `linked`
/// if a shortcut there leads to them.
std::string noticeOfMovedDesktop(const std::string& desktop, bool linked);

/// Sentences about files of whose sound a part is missing.
std::vector<std::string> noticesOfSounds(const Material& material);

}  // namespace run
