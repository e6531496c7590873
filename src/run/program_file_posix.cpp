#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <sstream>

#include "report/files.h"
#include "run/own_folder.h"
#include "run/program_file.h"

namespace run {
namespace {

namespace fs = std::filesystem;

bool isProgram(const fs::path& file) {
  std::error_code unknown;
  return fs::is_regular_file(file, unknown) && access(file.c_str(), X_OK) == 0;
}

}  // namespace

std::string programFile(const std::string& name) {
  if (name.find('/') != std::string::npos) return name;
  if (const fs::path own = report::fromUtf8(ownFolder()) / name;
      own.is_absolute() && isProgram(own))
    return report::toUtf8(own);
  const char* path = std::getenv("PATH");
  std::istringstream folders(path ? path : "/usr/local/bin:/usr/bin:/bin");
  for (std::string folder; std::getline(folders, folder, ':');) {
    const fs::path file = fs::path(folder) / name;
    if (file.is_absolute() && isProgram(file)) return file;  // others count from where we are
  }
  return {};
}

}  // namespace run
