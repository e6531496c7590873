#pragma once

#include <string_view>
#include <vector>

namespace report {

/// One character of a UTF-8 text. A byte that starts no whole character stands alone as invalid.
struct Character {
  std::string_view bytes;  // within the text
  char32_t code;
  bool valid;
};

std::vector<Character> characters(std::string_view text);

/// Columns that a character takes on a terminal: 0, 1 or 2.
int columns(char32_t code);

}  // namespace report
