#include <algorithm>
#include <map>
#include <set>

#include "report/profile.h"
#include "report/text.h"

namespace report {
namespace {

/// The last `parts` parts of `path`; all of it where it has no more.
std::string lastParts(const std::string& path, int parts) {
  std::size_t start = path.size() + 1;  // one past the slash that parts it from the rest
  for (int i = 0; i < parts && start > 1; ++i)
    start = path.find_last_of("/\\", start - 2) + 1;  // nothing found gives the beginning, 0
  std::string result = path.substr(std::min(start, path.size()));
  std::ranges::replace(result, '\\', '/');
  return printable(nativeSlashes(result));
}

constexpr int kMostParts = 64;  // two names may differ only in what cannot be shown

}  // namespace

std::vector<std::string> distinctNames(const std::vector<std::string>& paths) {
  std::vector<std::string> names(paths.size());
  std::vector<std::size_t> open(paths.size());
  for (std::size_t i = 0; i < open.size(); ++i) open[i] = i;
  for (int parts = 1; parts <= kMostParts && !open.empty(); ++parts) {
    std::map<std::string, std::set<std::string>> uses;
    for (const std::size_t i : open) uses[names[i] = lastParts(paths[i], parts)].insert(paths[i]);
    std::erase_if(open, [&](std::size_t i) { return uses[names[i]].size() == 1; });
  }
  return names;
}

}  // namespace report
