#include "run/results_folder.h"

#include <filesystem>

#include "report/diagnostics.h"
#include "report/disk.h"
#include "report/files.h"
#include "report/profile.h"

namespace run {

namespace fs = std::filesystem;

std::string resultsFolder() {
  return report::plainSlashes(report::profileFolder()) + report::kSyncedFolder;
}

std::string makeResultsFolders() {
  const fs::path folder = report::fromUtf8(resultsFolder());
  for (const fs::path& path : {folder, folder / "debugfiles", folder / "VEGAS_SEQUENCES"}) {
    if (const std::error_code error = report::makeFolders(path))
      return "The folder " + report::nativeSlashes(report::toUtf8(path)) + " cannot be created (" +
             error.message() + "), so no documents can be written there.";
  }
  return {};
}

void startLog(int mode) {
  if (mode != 1) report::removeFile(report::fromUtf8(report::profileFolder() + report::kLogFile));
  report::appendLogLine("pocetok na sync c kernel....");  // beginning of the run
}

}  // namespace run
