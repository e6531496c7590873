#include "report/long_path.h"

#include "report/diagnostics.h"

namespace report {
namespace {

constexpr std::string_view kExtended = R"(\\?\)", kExtendedShare = R"(\\?\UNC\)";

bool startsWith(std::string_view path, std::string_view prefix) {
  return toBackslashPath(std::string(path.substr(0, prefix.size()))) == prefix;
}

}  // namespace

std::string extendedPath(std::string_view path) {
  if (path.starts_with(kExtended)) return std::string(path);
  if (path.starts_with(R"(\\)")) return std::string(kExtendedShare).append(path.substr(2));
  return std::string(kExtended).append(path);
}

std::string plainPath(std::string_view path) {
  if (startsWith(path, kExtendedShare))
    return std::string(path.substr(0, 2)).append(path.substr(kExtendedShare.size()));
  return std::string(startsWith(path, kExtended) ? path.substr(kExtended.size()) : path);
}

}  // namespace report
