#include "app/working_directory.h"

#include <filesystem>
#include <system_error>

#include "report/files.h"

namespace app {

std::string workingDirectory() {
  std::error_code error;
  const std::filesystem::path folder = std::filesystem::current_path(error);
  return error ? "X" : report::nativeUtf8(folder);
}

}  // namespace app
