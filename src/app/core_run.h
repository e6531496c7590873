#pragma once

#include <atomic>
#include <string>
#include <vector>

#include "app/run_job.h"
#include "run/desktop.h"

namespace app {

/// The real run: media files in, documents out, with this system's programs and folders.
RunAnswer runCore(const RunRequest& request, run::Progress& progress,
                  const std::atomic<bool>& cancelled);

/// Converts every file to mono sound of 8000 Hz beside it; returns the names in list order.
std::vector<std::string> convertCore(const std::vector<std::string>& videofiles,
                                     run::Progress& progress, const std::atomic<bool>& cancelled);

/// Writes the documents of a project into `folder`, a whole path; nothing is listened to. Where a
/// clock drifts, sound is written anew, which takes its time.
run::Outcome exportCore(const project::Project& project, const std::string& folder,
                        const std::atomic<bool>& cancelled);

/// Writes the end-of-run report and shows it and the results to the user.
void reportCore(const std::vector<std::string>& result);

/// Has all of the above use another desktop than the system's, one that lives on.
void useDesktop(run::Desktop& desktop);

}  // namespace app
