#include <cstdlib>

#include "report/profile.h"

namespace report {

std::string profileFolder() {
  for (const char* name : {"USERPROFILE", "HOME"}) {
    const char* value = std::getenv(name);
    if (value && *value) return value;
  }
  return {};
}

void useProfileFolder(const std::string& folder) { setenv("USERPROFILE", folder.c_str(), 1); }

std::string nativeSlashes(const std::string& path) { return path; }
std::string plainSlashes(std::string path) { return path; }

}  // namespace report
