#pragma once

#include <string>
#include <vector>

namespace run {

/// The folder of a run's results: SYNCED on the user's desktop, with slashes on every system.
std::string resultsFolder();

/// Creates the folder of results with the folders in it. Returns what went wrong, if anything, as
/// a plain sentence.
std::string makeResultsFolders();

/// Deletes the log of earlier runs, unless `mode` is 1.
void startLog(int mode);

}  // namespace run
