#include "report/disk.h"
#include "report/files.h"
#include "report/long_path.h"

namespace report {

namespace fs = std::filesystem;

std::string openablePath(const std::string& path) { return path; }
std::string shownPath(const std::string& path) { return path; }

std::string wholePath(const std::string& name) {
  std::error_code failed;
  const fs::path whole = fs::absolute(fromUtf8(name), failed).lexically_normal();
  return failed ? name : toUtf8(whole);
}

fs::file_type kindOf(const fs::path& path, std::error_code& error) {
  const fs::file_type kind = fs::status(path, error).type();
  if (kind == fs::file_type::not_found) error.clear();
  return kind;
}

std::uintmax_t sizeOf(const fs::path& path) {
  std::error_code error;
  const std::uintmax_t size = fs::file_size(path, error);
  return error ? 0 : size;
}

std::uintmax_t roomIn(const fs::path& folder) {
  std::error_code error;
  return fs::space(folder, error).available;  // the largest number after an error
}

bool areOneFile(const fs::path& first, const fs::path& second) {
  std::error_code error;
  return fs::equivalent(first, second, error);
}

bool isHeldByAnother(const fs::path&) { return false; }

void removeFile(const fs::path& path) {
  std::error_code ignored;
  fs::remove(path, ignored);
}

void removeFolder(const fs::path& folder) {
  std::error_code ignored;
  fs::remove_all(folder, ignored);
}

std::error_code copyFile(const fs::path& from, const fs::path& to) {
  std::error_code error;
  fs::copy_file(from, to, fs::copy_options::overwrite_existing, error);
  return error;
}

std::error_code makeFolders(const fs::path& folder) {
  std::error_code error;
  fs::create_directories(folder, error);
  return error;
}

std::vector<FolderItem> itemsOf(const fs::path& folder) {
  std::vector<FolderItem> items;
  std::error_code failed;
  for (fs::directory_iterator item(folder, failed); !failed && item != fs::directory_iterator();
       item.increment(failed)) {
    std::error_code unknown;  // a kind that cannot be told is neither folder nor file
    const bool isFolder = item->is_directory(unknown) && !item->is_symlink(unknown);
    items.push_back({toUtf8(item->path().filename()), isFolder, item->is_regular_file(unknown)});
  }
  return items;
}

}  // namespace report
