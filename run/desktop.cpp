#include "run/desktop.h"

namespace run {

bool isOneCommand(std::string_view line) {
  bool quoted = false;
  for (const char character : line) {
    if (character == '"') quoted = !quoted;
    if (character == '%' || character == '\n' || character == '\r') return false;
    if (!quoted && std::string_view("&|<>^()").find(character) != std::string_view::npos)
      return false;
  }
  return true;
}

}  // namespace run
