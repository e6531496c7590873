#include <cstdlib>

#include "report/diagnostics.h"
#include "report/files.h"
#include "report/profile.h"

namespace report {

std::string profileFolder() {
  const wchar_t* value = _wgetenv(L"USERPROFILE");
  const std::u8string text = std::filesystem::path(value ? value : L"").u8string();
  return {text.begin(), text.end()};  // with its back slashes, as the commands use it
}

void useProfileFolder(const std::string& folder) {
  _wputenv_s(L"USERPROFILE", fromUtf8(folder).c_str());
}

std::string nativeSlashes(const std::string& path) { return toBackslashPath(path); }

}  // namespace report
