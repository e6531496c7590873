#pragma once

#include <locale>
#include <sstream>
#include <string>

namespace analysis {

/// A log line of `parts` one after the other, numbers as streams write them in any country.
template <typename... Parts>
std::string line(const Parts&... parts) {
  std::ostringstream text;
  text.imbue(std::locale::classic());
  (text << ... << parts);
  return text.str();
}

}  // namespace analysis
