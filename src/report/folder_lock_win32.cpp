#include <windows.h>

#include <string>

#include "report/files.h"
#include "report/folder_lock.h"

namespace report {
namespace {

/// Names of kernel objects take no back slashes and are short.
std::wstring nameFor(const std::filesystem::path& folder) {
  std::error_code unknown;
  const std::filesystem::path place = std::filesystem::weakly_canonical(folder, unknown);
  std::wstring text = (unknown ? folder : place).wstring();
  CharLowerBuffW(text.data(), static_cast<DWORD>(text.size()));
  return L"Local\\KestrelAligner-" + std::to_wstring(std::hash<std::wstring>()(text));
}

}  // namespace

// What counts is that the object exists; nobody waits for it.
FolderLock::FolderLock(const std::filesystem::path& folder)
    : handle_(CreateMutexW(nullptr, FALSE, nameFor(folder).c_str())) {
  mine_ = !handle_ || GetLastError() != ERROR_ALREADY_EXISTS;
}

FolderLock::~FolderLock() {
  if (handle_) CloseHandle(handle_);
}

}  // namespace report
