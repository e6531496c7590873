#include "report/text.h"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdio>

#include "report/utf8.h"

namespace report {

std::string decimalText(double value, int decimals) {
  char buffer[400];  // the largest double has 309 digits before the point
  const auto end =
      std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed, decimals).ptr;
  return {buffer, end};
}

std::string shortestText(double value) {
  char buffer[400];
  return {buffer,
          std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed).ptr};
}

std::string clockText(double seconds) {
  if (!std::isfinite(seconds) || std::abs(seconds) > 1e12) return "-";
  const std::int64_t rounded = std::llround(std::abs(seconds) * 1000);
  const long long hours = rounded / 3'600'000;
  const int minutes = static_cast<int>(rounded / 60'000 % 60);
  const int milliseconds = static_cast<int>(rounded % 60'000);
  char text[40];
  std::snprintf(text, sizeof text, "%s%lld:%02d:%02d.%03d", seconds < 0 && rounded > 0 ? "-" : "",
                hours, minutes, milliseconds / 1000, milliseconds % 1000);
  return text;
}

std::string countText(std::size_t count, std::string_view noun) {
  return std::to_string(count) + ' ' + std::string(noun) + (count == 1 ? "" : "s");
}

std::string printable(std::string_view text) {
  std::string result;
  for (const Character& c : characters(text)) {
    const bool control = c.code < 0x20 || (c.code >= 0x7f && c.code < 0xa0);
    result += control || !c.valid ? std::string_view("?") : c.bytes;
  }
  return result;
}

int displayWidth(std::string_view text) {
  int width = 0;
  for (const Character& c : characters(text)) width += columns(c.code);
  return width;
}

std::string elidedMiddle(std::string_view text, int width) {
  const std::vector<Character> all = characters(text);
  if (displayWidth(text) <= width) return std::string(text);
  if (width < 4) return std::string(static_cast<std::size_t>(width > 0 ? width : 0), '.');
  std::string head, tail;
  int left = width - 3;  // for the three dots
  std::size_t first = 0, last = all.size();
  while (first < last) {
    const bool atHead = displayWidth(head) <= displayWidth(tail);
    const Character& c = atHead ? all[first] : all[last - 1];
    left -= columns(c.code);
    if (left < 0) break;
    if (atHead) {
      head += c.bytes;
      ++first;
    } else {
      tail.insert(0, c.bytes);
      --last;
    }
  }
  return head + "..." + tail;
}

}  // namespace report
