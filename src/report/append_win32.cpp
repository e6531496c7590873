#include <windows.h>

#include <mutex>
#include <string>

#include "report/append.h"

namespace report {

std::string withSystemLineEnds(std::string_view text) {
  std::string result;
  for (const char character : text) {
    if (character == '\n' && !result.ends_with('\r')) result += '\r';
    result += character;
  }
  return result;
}

// A stream opened for appending looks for the end and then writes: two steps. A handle that may
// only append does both in one, for every process; the lock is for Wine, which does not.
void appendWholeLine(const std::filesystem::path& path, std::string_view line) {
  const std::string whole = withSystemLineEnds(line) + "\r\n";
  static std::mutex oneAtATime;
  const std::lock_guard lock(oneAtATime);
  HANDLE file = CreateFileW(path.c_str(), FILE_APPEND_DATA, FILE_SHARE_READ | FILE_SHARE_WRITE,
                            nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) return;
  DWORD written = 0;
  WriteFile(file, whole.data(), static_cast<DWORD>(whole.size()), &written, nullptr);
  CloseHandle(file);
}

}  // namespace report
