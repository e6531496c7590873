#include "project/path_text.h"

#include <algorithm>
#include <vector>

#include "report/utf8.h"

namespace project {
namespace {

using Parts = std::vector<std::string_view>;

Parts partsOf(std::string_view path) {
  Parts parts;
  for (std::size_t begin = 0; begin <= path.size();) {
    const std::size_t end = std::min(path.find('/', begin), path.size());
    parts.push_back(path.substr(begin, end - begin));
    begin = end + 1;
  }
  return parts;
}

std::string joined(const Parts& parts) {
  std::string path;
  for (std::size_t i = 0; i < parts.size(); ++i) path.append(i > 0 ? "/" : "").append(parts[i]);
  return path;
}

/// The parts that name a drive: "" of "/home", "C:" of "C:/", three of "//server/share".
std::ptrdiff_t rootParts(std::string_view path) { return path.starts_with("//") ? 4 : 1; }

bool isWhole(std::string_view path) {
  return path.starts_with('/') || (path.size() > 1 && path[1] == ':');
}

int hexDigit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  return -1;
}

void appendEscaped(std::string& text, std::string_view bytes) {
  constexpr char kDigits[] = "0123456789ABCDEF";
  for (const unsigned char byte : bytes) {
    text += '%';
    text += kDigits[byte / 16];
    text += kDigits[byte % 16];
  }
}

}  // namespace

std::optional<std::string> relativePath(const std::string& path, const std::string& folder) {
  if (!isWhole(path) || !isWhole(folder)) return {};
  const Parts to = partsOf(path);
  Parts from = partsOf(folder);
  while (!from.empty() && from.back().empty()) from.pop_back();  // "/folder/"
  if (from.empty()) from.push_back({});                          // "/"
  const auto [end, fork] = std::ranges::mismatch(from, to);
  const std::ptrdiff_t common = end - from.begin();
  if (common < rootParts(path) || fork == to.end()) return {};
  Parts parts(static_cast<std::size_t>(from.end() - end), "..");
  parts.insert(parts.end(), fork, to.end());
  return joined(parts);
}

std::string pathFrom(const std::string& folder, const std::string& relative) {
  if (isWhole(relative)) return relative;
  Parts parts = partsOf(folder);
  while (parts.size() > 1 && parts.back().empty()) parts.pop_back();
  const auto root = static_cast<std::size_t>(rootParts(folder));
  for (const std::string_view part : partsOf(relative)) {
    if (part == "..") {
      if (parts.size() > root) parts.pop_back();
    } else if (part != ".") {
      parts.push_back(part);
    }
  }
  return joined(parts);
}

std::string escapedPath(std::string_view path) {
  std::string text;
  for (const report::Character& character : report::characters(path)) {
    const bool control = character.code < 0x20 || character.code == 0x7f;
    if (!character.valid || control || character.code == U'%')
      appendEscaped(text, character.bytes);
    else
      text += character.bytes;
  }
  return text;
}

std::string unescapedPath(std::string_view text) {
  std::string path;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const int high = text[i] == '%' && i + 2 < text.size() ? hexDigit(text[i + 1]) : -1;
    const int low = high >= 0 ? hexDigit(text[i + 2]) : -1;
    if (low < 0) {
      path += text[i];
      continue;
    }
    path += static_cast<char>(high * 16 + low);
    i += 2;
  }
  return path;
}

}  // namespace project
