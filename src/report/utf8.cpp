#include "report/utf8.h"

#include <algorithm>
#include <span>

namespace report {
namespace {

struct Range {
  char32_t first, last;
};

constexpr Range kCombining[] = {{0x300, 0x36f},   {0x483, 0x489},   {0x591, 0x5bd},
                                {0x610, 0x61a},   {0x64b, 0x65f},   {0x1ab0, 0x1aff},
                                {0x1dc0, 0x1dff}, {0x200b, 0x200f}, {0x20d0, 0x20ff},
                                {0xfe00, 0xfe0f}, {0xfe20, 0xfe2f}};
constexpr Range kWide[] = {
    {0x1100, 0x115f}, {0x2e80, 0xa4cf}, {0xac00, 0xd7a3},   {0xf900, 0xfaff},   {0xfe30, 0xfe6f},
    {0xff00, 0xff60}, {0xffe0, 0xffe6}, {0x1f300, 0x1f64f}, {0x1f900, 0x1f9ff}, {0x20000, 0x3fffd}};

bool isIn(std::span<const Range> ranges, char32_t code) {
  return std::ranges::any_of(ranges, [code](Range r) { return r.first <= code && code <= r.last; });
}

/// Bytes of the character that `lead` starts; 0 where it can start none.
std::size_t lengthFrom(unsigned char lead) {
  if (lead < 0x80) return 1;
  if (lead >= 0xc2 && lead < 0xe0) return 2;
  if (lead >= 0xe0 && lead < 0xf0) return 3;
  if (lead >= 0xf0 && lead < 0xf5) return 4;
  return 0;
}

char32_t decoded(std::string_view bytes) {
  constexpr unsigned char kLeadBits[] = {0, 0x7f, 0x1f, 0x0f, 0x07};
  char32_t code = static_cast<unsigned char>(bytes[0]) & kLeadBits[bytes.size()];
  for (const char byte : bytes.substr(1))
    code = code << 6 | (static_cast<unsigned char>(byte) & 0x3f);
  return code;
}

Character characterAt(std::string_view text, std::size_t position) {
  const std::size_t length = lengthFrom(static_cast<unsigned char>(text[position]));
  const std::string_view bytes = text.substr(position, std::max<std::size_t>(length, 1));
  const bool follows = std::ranges::all_of(
      bytes.substr(1), [](char byte) { return (static_cast<unsigned char>(byte) & 0xc0) == 0x80; });
  if (length == 0 || bytes.size() < length || !follows) return {bytes.substr(0, 1), 0xfffd, false};
  const char32_t code = decoded(bytes);
  // Longer than it need be, half of a pair, beyond the last: a terminal may take it for another.
  constexpr char32_t kLeast[] = {0, 0, 0x80, 0x800, 0x10000};
  const bool halfPair = code >= 0xd800 && code < 0xe000;
  if (code < kLeast[length] || halfPair || code > 0x10ffff)
    return {bytes.substr(0, 1), 0xfffd, false};
  return {bytes, code, true};
}

}  // namespace

std::vector<Character> characters(std::string_view text) {
  std::vector<Character> result;
  for (std::size_t i = 0; i < text.size(); i += result.back().bytes.size())
    result.push_back(characterAt(text, i));
  return result;
}

int columns(char32_t code) {
  if (isIn(kCombining, code)) return 0;
  return isIn(kWide, code) ? 2 : 1;
}

}  // namespace report
