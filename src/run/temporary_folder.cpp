#include "run/temporary_folder.h"

#include <random>
#include <string>

namespace run {

const std::filesystem::path& TemporaryFolder::path() {
  std::random_device random;
  std::error_code error;
  const std::filesystem::path base = std::filesystem::temp_directory_path(error);
  for (int attempt = 0; path_.empty() && !error && attempt < 100; ++attempt) {
    const std::filesystem::path folder = base / ("kestrel-aligner-" + std::to_string(random()));
    if (!std::filesystem::create_directory(folder, error)) continue;  // taken: another name
    std::filesystem::permissions(folder, std::filesystem::perms::owner_all, error);
    path_ = folder;
  }
  return path_;
}

}  // namespace run
