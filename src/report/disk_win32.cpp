#include <windows.h>

#include "report/disk.h"
#include "report/files.h"
#include "report/long_path.h"

namespace report {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kLongestPlain = 247;  // of a folder; files may have 12 characters more

/// Opened files and searches, closed at the end. `Close` is the function of the system for it.
template <BOOL(WINAPI* Close)(HANDLE)>
class Handle {
 public:
  explicit Handle(HANDLE handle) : handle_(handle) {}
  ~Handle() {
    if (isOpen()) Close(handle_);
  }
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;
  bool isOpen() const { return handle_ != INVALID_HANDLE_VALUE; }
  HANDLE get() const { return handle_; }

 private:
  HANDLE handle_;
};
using File = Handle<CloseHandle>;
using Search = Handle<FindClose>;

/// Opened so that others may go on with what they do to it.
HANDLE opened(const fs::path& path, DWORD access) {
  return CreateFileW(path.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                     nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
}

std::error_code lastError() { return {static_cast<int>(GetLastError()), std::system_category()}; }

bool meansAbsent(DWORD error) {
  return error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND ||
         error == ERROR_INVALID_NAME || error == ERROR_BAD_NETPATH || error == ERROR_BAD_NET_NAME ||
         error == ERROR_INVALID_DRIVE;
}

bool isLink(const WIN32_FIND_DATAW& found) {
  return (found.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 &&
         (found.dwReserved0 == IO_REPARSE_TAG_SYMLINK ||
          found.dwReserved0 == IO_REPARSE_TAG_MOUNT_POINT);
}

FolderItem itemOf(const WIN32_FIND_DATAW& found) {
  const bool folder = (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
  return {toUtf8(found.cFileName), folder && !isLink(found), !folder};
}

/// With back slashes; empty if the system cannot tell.
fs::path fromRoot(const fs::path& path) {
  std::wstring whole(32768, L'\0');  // the longest path that there is
  const DWORD size = static_cast<DWORD>(whole.size());
  const DWORD length = GetFullPathNameW(path.c_str(), size, whole.data(), nullptr);
  whole.resize(length < size ? length : 0);
  return whole;
}

fs::path plainFromUtf8(const std::string& text) { return std::u8string(text.begin(), text.end()); }

}  // namespace

std::string openablePath(const std::string& path) {
  const fs::path given = plainFromUtf8(path);
  if (given.native().size() <= kLongestPlain) return path;
  const std::u8string whole = fromRoot(given).u8string();
  return whole.empty() ? path : extendedPath(std::string(whole.begin(), whole.end()));
}

std::string wholePath(const std::string& name) {
  const fs::path whole = fromRoot(plainFromUtf8(name));
  return whole.empty() ? name : toUtf8(whole);
}

std::string shownPath(const std::string& path) { return plainPath(path); }

fs::file_type kindOf(const fs::path& path, std::error_code& error) {
  error.clear();
  const DWORD attributes = GetFileAttributesW(path.c_str());
  if (attributes != INVALID_FILE_ATTRIBUTES)
    return attributes & FILE_ATTRIBUTE_DIRECTORY ? fs::file_type::directory
                                                 : fs::file_type::regular;
  if (meansAbsent(GetLastError())) return fs::file_type::not_found;
  error = lastError();
  return fs::file_type::none;
}

std::uintmax_t sizeOf(const fs::path& path) {
  WIN32_FILE_ATTRIBUTE_DATA data;
  if (!GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &data)) return 0;
  return static_cast<std::uintmax_t>(data.nFileSizeHigh) << 32 | data.nFileSizeLow;
}

std::uintmax_t roomIn(const fs::path& folder) {
  const std::wstring ended = folder.wstring() + L'\\';  // as the names of shares must be
  ULARGE_INTEGER room;
  return GetDiskFreeSpaceExW(ended.c_str(), &room, nullptr, nullptr) ? room.QuadPart : UINTMAX_MAX;
}

bool areOneFile(const fs::path& first, const fs::path& second) {
  const File a(opened(first, 0)), b(opened(second, 0));
  BY_HANDLE_FILE_INFORMATION of[2];
  return a.isOpen() && b.isOpen() && GetFileInformationByHandle(a.get(), &of[0]) &&
         GetFileInformationByHandle(b.get(), &of[1]) &&
         of[0].dwVolumeSerialNumber == of[1].dwVolumeSerialNumber &&
         of[0].nFileIndexHigh == of[1].nFileIndexHigh && of[0].nFileIndexLow == of[1].nFileIndexLow;
}

bool isHeldByAnother(const fs::path& path) {
  const File file(opened(path, GENERIC_READ));
  return !file.isOpen() && GetLastError() == ERROR_SHARING_VIOLATION;
}

void removeFile(const fs::path& path) { DeleteFileW(path.c_str()); }

void removeFolder(const fs::path& folder) {
  for (const FolderItem& item : itemsOf(folder)) {
    const fs::path path = fromUtf8(toUtf8(folder) + '/' + item.name);
    if (item.isFolder)
      removeFolder(path);
    else if (!DeleteFileW(path.c_str()))
      RemoveDirectoryW(path.c_str());  // a link to a folder
  }
  RemoveDirectoryW(folder.c_str());
}

std::error_code copyFile(const fs::path& from, const fs::path& to) {
  return CopyFileW(from.c_str(), to.c_str(), FALSE) ? std::error_code() : lastError();
}

std::error_code makeFolders(const fs::path& folder) {
  std::error_code unknown;
  if (CreateDirectoryW(folder.c_str(), nullptr)) return {};
  const std::error_code error = lastError();
  if (kindOf(folder, unknown) == fs::file_type::directory) return {};
  const std::size_t slash = folder.native().find_last_of(L"\\/");  // parent_path() knows no "\\?\"
  if (error.value() != ERROR_PATH_NOT_FOUND || slash == std::wstring::npos) return error;
  if (const std::error_code above = makeFolders(folder.native().substr(0, slash))) return above;
  return CreateDirectoryW(folder.c_str(), nullptr) ? std::error_code() : lastError();
}

std::vector<FolderItem> itemsOf(const fs::path& folder) {
  std::vector<FolderItem> items;
  WIN32_FIND_DATAW found;
  const Search search(FindFirstFileW((folder / L"*").c_str(), &found));
  for (bool more = search.isOpen(); more; more = FindNextFileW(search.get(), &found)) {
    const std::wstring_view name = found.cFileName;
    if (name != L"." && name != L"..") items.push_back(itemOf(found));
  }
  return items;
}

}  // namespace report
