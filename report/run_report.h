#pragma once

#include <array>
#include <functional>
#include <string>
#include <vector>

#include "report/console.h"

namespace report {

// The two status texts of a run that are more than a message; all others mean a partial result.
inline constexpr char kNothingMatched[] = "nema";  // "there is none"
inline constexpr char kSuccess[] =
    "ALL FILES WERE ANALYZED! SUCCESS! FOR MORE PRECISE SYNCING USE MODES AND ONECAMERA OPTION!";

/// The text of PROBLEMS.TXT for a run's result: its status text, then paths of problematic files.
/// An empty result counts as a partial one.
std::string problemsText(const std::vector<std::string>& result);

/// Something to show to the user at the end of a run.
struct ToOpen {
  std::string command;  // for the command processor of Windows
  std::string path;     // UTF-8, with slashes; what other systems open
};

/// The SYNCED folder, PROBLEMS.TXT and READ2SYNC.txt below `profile`, in this order.
std::array<ToOpen, 3> resultsToOpen(const std::string& profile);

/// Ends a run: composes the report, writes PROBLEMS.TXT and hands what is to be shown to `open`,
/// which may be empty. The SYNCED folder must exist; a failed write is skipped.
void reportRun(const std::vector<std::string>& result, Console& console,
               const std::function<void(const ToOpen&)>& open);

}  // namespace report
