#pragma once

#include <filesystem>
#include <memory>

#include "report/folder_lock.h"

namespace run {

/// A folder of its own below the system's temporary folder, made when it is first asked for and
/// removed with all that is in it at the end. Those that killed runs have left are removed then.
class TemporaryFolder {
 public:
  TemporaryFolder() = default;
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder();

  /// Empty if no folder could be made.
  const std::filesystem::path& path();

 private:
  std::filesystem::path path_;
  std::unique_ptr<report::FolderLock> lock_;  // tells others that it is in use
};

}  // namespace run
