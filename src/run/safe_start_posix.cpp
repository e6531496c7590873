#include <cstdlib>
#include <sstream>
#include <string>

#include "run/safe_start.h"

namespace run {

// An empty or relative folder in PATH means the working directory or one below it.
void startSafely() {
  const char* path = std::getenv("PATH");
  if (!path) return;
  std::istringstream folders(path);
  std::string whole;
  for (std::string folder; std::getline(folders, folder, ':');)
    if (folder.starts_with('/')) whole += (whole.empty() ? "" : ":") + folder;
  setenv("PATH", whole.c_str(), 1);
}

}  // namespace run
