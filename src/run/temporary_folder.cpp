#include "run/temporary_folder.h"

#include <random>
#include <string>

#include "report/disk.h"
#include "report/files.h"
#include "run/guard.h"

namespace run {
namespace {

namespace fs = std::filesystem;

constexpr char kPrefix[] = "kestrel-aligner-";

void removeDeserted(const fs::path& base) {
  for (const report::FolderItem& item : report::itemsOf(base)) {
    if (!item.isFolder || !item.name.starts_with(kPrefix)) continue;
    const fs::path folder = base / report::fromUtf8(item.name);
    const report::FolderLock lock(folder);
    if (lock.isMine()) report::removeFolder(folder);
  }
}

}  // namespace

const fs::path& TemporaryFolder::path() {
  if (!path_.empty()) return path_;
  std::random_device random;
  std::error_code error;
  const fs::path base = fs::temp_directory_path(error);
  if (!error) removeDeserted(base);
  for (int attempt = 0; path_.empty() && !error && attempt < 100; ++attempt) {
    const fs::path folder = base / (kPrefix + std::to_string(random()));
    if (!fs::create_directory(folder, error)) continue;  // taken: another name
    lock_ = std::make_unique<report::FolderLock>(folder);
    fs::permissions(folder, fs::perms::owner_all, error);
    path_ = folder;
    guardPath(path_);
  }
  return path_;
}

TemporaryFolder::~TemporaryFolder() {
  if (path_.empty()) return;
  report::removeFolder(path_);
  releasePath(path_);
}

}  // namespace run
