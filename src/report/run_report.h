#pragma once

#include <array>
#include <functional>
#include <string>
#include <vector>

#include "report/console.h"
#include "report/status.h"

namespace report {

// The two status texts of a run that are more than a message; all others mean a partial result.
inline constexpr char kNothingMatched[] = "nema";  // "there is none"
inline constexpr char kSuccess[] =
    "ALL FILES WERE ANALYZED! SUCCESS! FOR MORE PRECISE SYNCING USE MODES AND ONECAMERA OPTION!";

/// The text of PROBLEMS.TXT for a run's result: its status text, then paths of problematic files.
/// An empty result counts as a partial one.
std::string problemsText(const std::vector<std::string>& result);

/// The commands that show the SYNCED folder, PROBLEMS.TXT and READ2SYNC.txt below `profile`, in
/// this order, for the command processor of Windows; with slashes as given.
std::array<std::string, 3> openCommands(const std::string& profile);

/// Ends a run: composes the report, writes PROBLEMS.TXT and hands the three commands to `execute`,
/// which may be empty. The SYNCED folder must exist. Says whether the file was written.
Status reportRun(const std::vector<std::string>& result, Console& console,
                 const std::function<void(const std::string&)>& execute);

}  // namespace report
