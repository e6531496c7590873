#include "run/wide_text.h"

#include "report/utf8.h"

namespace run {
namespace {

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
  for (const report::Character& character : report::characters(text)) append(wide, character.code);
  return wide;
}

std::string narrowed(std::wstring_view text) {
  std::string narrow;
  for (const wchar_t character : text)
    narrow += character > 0 && character < 128 ? static_cast<char>(character) : '_';
  return narrow;
}

}  // namespace run
