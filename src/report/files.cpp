#include "report/files.h"

#include <cerrno>
#include <cstring>
#include <fstream>

#include "report/long_path.h"
#include "report/profile.h"

namespace report {

std::filesystem::path fromUtf8(std::string_view text) {
  const std::string openable = openablePath(std::string(text));
  return std::filesystem::path(std::u8string(openable.begin(), openable.end()));
}

std::string toUtf8(const std::filesystem::path& path) { return plainSlashes(nativeUtf8(path)); }

std::string nativeUtf8(const std::filesystem::path& path) {
  const std::u8string text = path.u8string();
  return shownPath({text.begin(), text.end()});
}

Status writeWhole(const std::filesystem::path& path, std::string_view text) {
  errno = 0;
  std::ofstream file(path, std::ios::binary);
  file << text << std::flush;
  if (!file) return {"cannot write " + toUtf8(path) + ": " + std::strerror(errno)};
  return {};
}

}  // namespace report
