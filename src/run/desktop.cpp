#include "run/desktop.h"

namespace run {

bool isOneCommand(std::string_view line) {
  const bool bareName = line.find('"') == line.npos;  // a blank would end the command in it
  bool quoted = false;
  for (const char character : line) {
    if (character == '"') quoted = !quoted;
    if (character == '%' || character == '\n' || character == '\r') return false;
    const std::string_view refused = quoted ? "" : bareName ? "&|<>^(),;= " : "&|<>^(),;=";
    if (refused.find(character) != refused.npos) return false;
  }
  return true;
}

}  // namespace run
