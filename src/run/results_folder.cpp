#include "run/results_folder.h"

#include <algorithm>
#include <filesystem>

#include "report/diagnostics.h"
#include "report/files.h"
#include "report/profile.h"

namespace run {
namespace {

namespace fs = std::filesystem;

/// Elsewhere than on Windows a back slash in a folder's name is part of the name.
std::string withSlashes(std::string path) {
  if (report::nativeSlashes("/") == "\\") std::ranges::replace(path, '\\', '/');
  return path;
}

}  // namespace

std::string resultsFolder() { return withSlashes(report::profileFolder()) + report::kSyncedFolder; }

std::string makeResultsFolders() {
  const fs::path folder = report::fromUtf8(resultsFolder());
  for (const fs::path& path : {folder, folder / "debugfiles", folder / "VEGAS_SEQUENCES"}) {
    std::error_code error;
    fs::create_directories(path, error);
    if (error)
      return "The folder " + report::toUtf8(path) + " cannot be created (" + error.message() +
             "), so no documents can be written there.";
  }
  return {};
}

void startLog(int mode) {
  if (mode != 1) {
    std::error_code ignored;  // a missing log is what is wanted
    fs::remove(report::fromUtf8(report::profileFolder() + report::kLogFile), ignored);
  }
  report::appendLogLine("pocetok na sync c kernel....");  // beginning of the run
}

}  // namespace run
