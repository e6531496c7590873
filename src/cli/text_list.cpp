#include "cli/text_list.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <optional>
#include <sstream>

#include "report/files.h"

namespace cli {
namespace {

constexpr std::size_t kLongest = 8 << 20;  // bytes; a thousand of the longest paths there are

/// UTF-16 as UTF-8; none if it is broken.
std::optional<std::string> fromUtf16(std::string_view bytes, bool bigEndian) {
  std::u16string units;
  for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
    const auto low = static_cast<unsigned char>(bytes[i + (bigEndian ? 1 : 0)]);
    const auto high = static_cast<unsigned char>(bytes[i + (bigEndian ? 0 : 1)]);
    units += static_cast<char16_t>(high << 8 | low);
  }
  try {
    const std::u8string text = std::filesystem::path(units).u8string();
    return std::string(text.begin(), text.end());
  } catch (const std::exception&) {
    return std::nullopt;
  }
}

bool isText(std::string_view text) {
  return std::ranges::none_of(text, [](unsigned char c) {
    return c < ' ' && c != '\t' && c != '\r' && c != '\n' && c != '\f';
  });
}

}  // namespace

TextList linesOf(std::string text) {
  const bool bigEndian = text.starts_with("\xfe\xff");
  if (text.starts_with("\xef\xbb\xbf")) text.erase(0, 3);
  if (bigEndian || text.starts_with("\xff\xfe"))
    text = fromUtf16(std::string_view(text).substr(2), bigEndian).value_or(std::string(1, '\0'));
  if (!isText(text)) return {{}, "is no text"};
  TextList list;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) {
    if (line.ends_with('\r')) line.pop_back();
    if (!line.empty()) list.lines.push_back(line);
  }
  return list;
}

TextList readList(const std::string& path) {
  std::ifstream file;
  if (path != "-") file.open(report::fromUtf8(path), std::ios::binary);
  std::istream& stream = path == "-" ? std::cin : file;
  std::string text(kLongest + 1, '\0');
  stream.read(text.data(), static_cast<std::streamsize>(text.size()));
  text.resize(static_cast<std::size_t>(stream.gcount()));
  if (text.size() > kLongest) return {{}, "is too long for a list"};
  if (!stream.eof()) return {{}, "cannot be read"};
  return linesOf(std::move(text));
}

}  // namespace cli
