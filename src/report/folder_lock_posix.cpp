#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>

#include "report/folder_lock.h"

namespace report {

FolderLock::FolderLock(const std::filesystem::path& folder)
    : folder_(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
  if (folder_ >= 0) mine_ = flock(folder_, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

FolderLock::~FolderLock() {
  if (folder_ >= 0) close(folder_);
}

}  // namespace report
