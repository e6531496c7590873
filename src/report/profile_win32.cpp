#include <algorithm>
#include <cstdlib>

#include "report/diagnostics.h"
#include "report/files.h"
#include "report/profile.h"

namespace report {

std::string profileFolder() {
  const wchar_t* value = _wgetenv(L"USERPROFILE");
  return nativeUtf8(value ? value : L"");  // with its back slashes, as the commands use it
}

void useProfileFolder(const std::string& folder) {
  const std::filesystem::path path(std::u8string(folder.begin(), folder.end()));
  _wputenv_s(L"USERPROFILE", path.c_str());
}

std::string nativeSlashes(const std::string& path) { return toBackslashPath(path); }

std::string plainSlashes(std::string path) {
  std::ranges::replace(path, '\\', '/');
  return path;
}

}  // namespace report
