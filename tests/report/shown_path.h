#pragma once

#include <algorithm>
#include <string>

/// The text with the separators that this system's people are used to.
inline std::string shownPath(std::string text) {
#ifdef _WIN32
  std::ranges::replace(text, '/', '\\');
#endif
  return text;
}
