#include "report/files.h"

#include <cerrno>
#include <cstring>
#include <fstream>

namespace report {

std::filesystem::path fromUtf8(std::string_view text) {
  return std::filesystem::path(std::u8string(text.begin(), text.end()));
}

std::string toUtf8(const std::filesystem::path& path) {
  const std::u8string text = path.generic_u8string();
  return {text.begin(), text.end()};
}

Status writeWhole(const std::filesystem::path& path, std::string_view text) {
  errno = 0;
  std::ofstream file(path, std::ios::binary);
  file << text << std::flush;
  if (!file) return {"cannot write " + toUtf8(path) + ": " + std::strerror(errno)};
  return {};
}

}  // namespace report
