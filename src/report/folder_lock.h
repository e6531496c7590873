#pragma once

#include <filesystem>

namespace report {

/// Keeps a folder for one run of this program among all that run at the time. The system gives it
/// free when this object or the program ends, however that comes; nothing is left in the folder.
class FolderLock {
 public:
  explicit FolderLock(const std::filesystem::path& folder);
  ~FolderLock();
  FolderLock(const FolderLock&) = delete;
  FolderLock& operator=(const FolderLock&) = delete;

  /// False if another has the folder. True also where the system cannot tell, as on some shares.
  bool isMine() const { return mine_; }

 private:
  bool mine_ = true;
#ifdef _WIN32
  void* handle_ = nullptr;
#else
  int folder_ = -1;
#endif
};

}  // namespace report
