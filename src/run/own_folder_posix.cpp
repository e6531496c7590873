#include <filesystem>

#include "report/files.h"
#include "run/own_folder.h"

namespace run {

std::string ownFolder() {
  std::error_code error;
  return report::toUtf8(std::filesystem::read_symlink("/proc/self/exe", error).parent_path());
}

void workInOwnFolder() {}

}  // namespace run
