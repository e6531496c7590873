#pragma once

#include <filesystem>

#include "report/disk.h"

namespace run {

/// A folder of its own below the system's temporary folder, made when it is first asked for and
/// removed with all that is in it at the end.
class TemporaryFolder {
 public:
  TemporaryFolder() = default;
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder() {
    if (!path_.empty()) report::removeFolder(path_);
  }

  /// Empty if no folder could be made.
  const std::filesystem::path& path();

 private:
  std::filesystem::path path_;
};

}  // namespace run
