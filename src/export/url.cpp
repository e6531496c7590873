#include "export/url.h"

#include <algorithm>

#include "export/text.h"

namespace timeline {
namespace {

bool isPlain(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
         std::string_view("-._~/").find(c) != std::string_view::npos;
}

std::string percentEncoded(std::string_view text) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  std::string result;
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (isPlain(c))
      result += c;
    else
      (result += '%').append({digits[byte / 16], digits[byte % 16]});
  }
  return result;
}

}  // namespace

std::string fileUrl(std::string_view path, UrlStyle style) {
  const bool windows = isWindowsPath(path);
  std::string slashed(path);
  if (windows) std::ranges::replace(slashed, '\\', '/');
  const bool share = windows && slashed.starts_with("//");
  std::string root = style == UrlStyle::editor ? "file://localhost" : share ? "file:" : "file://";
  if (!slashed.starts_with('/')) root += '/';
  if (windows && !share && style == UrlStyle::standard)
    return root + slashed.substr(0, 2) + percentEncoded(slashed.substr(2));
  return root + percentEncoded(slashed);
}

}  // namespace timeline
