#include "export/text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "report/utf8.h"

namespace timeline {
namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";  // U+FFFD

std::string_view withoutTrailingZeros(std::string_view digits) {
  digits = digits.substr(0, digits.find_last_not_of('0') + 1);
  return digits.ends_with('.') ? digits.substr(0, digits.size() - 1) : digits;
}

bool allowedInXml(char32_t code) {
  if (code < 0x20) return code == '\t' || code == '\n' || code == '\r';
  return code != 0xFFFE && code != 0xFFFF;
}

std::string_view entity(char c) {
  switch (c) {
    case '&':
      return "&amp;";
    case '<':
      return "&lt;";
    case '>':
      return "&gt;";
    case '"':
      return "&quot;";
    case '\t':
      return "&#9;";  // as they stand, parsers turn these three into blanks
    case '\n':
      return "&#10;";
    case '\r':
      return "&#13;";
    default:
      return {};
  }
}

}  // namespace

std::string numberText(double value) {
  std::array<char, 400> text{};  // the longest double without an exponent has 309 digits
  char* const end = text.data() + text.size();
  const double size = std::abs(value);
  if (size >= 999999.5)
    return {text.data(), std::to_chars(text.data(), end, value, std::chars_format::fixed, 0).ptr};
  if (size > 0 && size < 1e-4) {
    const auto result = std::to_chars(text.data(), end, value, std::chars_format::fixed, 9);
    return std::string(withoutTrailingZeros({text.data(), result.ptr}));
  }
  return {text.data(), std::to_chars(text.data(), end, value, std::chars_format::general, 6).ptr};
}

std::string cleanText(std::string_view text) {
  std::string clean;
  for (const report::Character& character : report::characters(text))
    clean += character.valid && allowedInXml(character.code) ? character.bytes : kReplacement;
  return clean;
}

std::string oneLine(std::string_view text) {
  std::string line = cleanText(text);
  std::ranges::replace_if(
      line, [](char c) { return c == '\n' || c == '\r' || c == '\t'; }, ' ');
  return line;
}

std::string escaped(std::string_view text) {
  std::string result;
  for (const char c : cleanText(text)) {
    const std::string_view special = entity(c);
    if (special.empty())
      result += c;
    else
      result += special;
  }
  return result;
}

bool isWindowsPath(std::string_view path) {
  const auto letter = [](char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); };
  const bool share = path.starts_with("//") || path.starts_with("\\\\");
  return share || (path.size() >= 2 && letter(path[0]) && path[1] == ':');
}

std::string_view fileName(std::string_view path) {
  const auto slash = path.find_last_of(isWindowsPath(path) ? "/\\" : "/");
  return slash == std::string_view::npos ? path : path.substr(slash + 1);
}

std::string extension(std::string_view path) {
  const std::string_view name = fileName(path);
  const auto dot = name.find_last_of('.');
  std::string result(dot == std::string_view::npos ? "" : name.substr(dot + 1));
  for (char& c : result)
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  return result;
}

}  // namespace timeline
