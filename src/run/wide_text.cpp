#include "run/wide_text.h"

#include <bit>

namespace run {
namespace {

constexpr char32_t kUnreadable = 0xFFFD;

/// Takes one character off the front of `text`, which is not empty.
char32_t takeCharacter(std::string_view& text) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const int ones = std::countl_one(byte(0));
  std::size_t length = 1;
  char32_t character = ones == 0 ? byte(0) : kUnreadable;
  if (ones >= 2 && ones <= 4) {
    char32_t sum = byte(0) & (0x7F >> ones);
    for (; length < text.size() && length < std::size_t(ones) && (byte(length) & 0xC0) == 0x80;
         ++length)
      sum = sum << 6 | (byte(length) & 0x3F);
    if (length == std::size_t(ones) && sum <= 0x10FFFF) character = sum;
  }
  text.remove_prefix(length);
  return character;
}

void append(std::wstring& wide, char32_t character) {
  if (sizeof(wchar_t) > 2 || character < 0x10000) {
    wide += static_cast<wchar_t>(character);
    return;
  }
  wide += static_cast<wchar_t>(0xD800 + ((character - 0x10000) >> 10));
  wide += static_cast<wchar_t>(0xDC00 + (character & 0x3FF));
}

}  // namespace

std::wstring widened(std::string_view text) {
  std::wstring wide;
  while (!text.empty()) append(wide, takeCharacter(text));
  return wide;
}

std::string narrowed(std::wstring_view text) {
  std::string narrow;
  for (const wchar_t character : text)
    narrow += character > 0 && character < 128 ? static_cast<char>(character) : '_';
  return narrow;
}

}  // namespace run
