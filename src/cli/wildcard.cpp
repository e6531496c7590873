#include "cli/wildcard.h"

#include <algorithm>

#include "report/disk.h"
#include "report/files.h"

namespace cli {
namespace {

char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

}  // namespace

bool fits(std::string_view name, std::string_view pattern) {
  std::size_t at = 0, in = 0, star = pattern.npos, resumed = 0;
  while (at < name.size()) {
    if (in < pattern.size() && pattern[in] == '*') {
      star = in++;  // tried as empty text first
      resumed = at;
    } else if (in < pattern.size() &&
               (pattern[in] == '?' || lower(pattern[in]) == lower(name[at]))) {
      ++in;
      ++at;
    } else if (star != pattern.npos) {
      in = star + 1;
      at = ++resumed;
    } else {
      return false;
    }
  }
  return pattern.find_first_not_of('*', in) == pattern.npos;
}

std::vector<std::string> expanded(const std::string& word) {
  const std::size_t begin = word.find_last_of("/\\") + 1;  // nothing found gives the beginning, 0
  const std::string folder = word.substr(0, begin), pattern = word.substr(begin);
  if (word.starts_with('-') || pattern.find_first_of("*?") == pattern.npos) return {word};
  std::vector<std::string> found;
  for (const auto& item : report::itemsOf(report::fromUtf8(folder.empty() ? "." : folder)))
    if (item.name.starts_with('.') == pattern.starts_with('.') && fits(item.name, pattern))
      found.push_back(folder + item.name);
  std::ranges::sort(found);
  return found.empty() ? std::vector{word} : found;
}

}  // namespace cli
