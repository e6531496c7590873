#include "cli/mistakes.h"

#include <algorithm>
#include <numeric>
#include <utility>
#include <vector>

namespace cli {
namespace {

/// How many letters must be added, left out or changed to turn one word into the other.
std::size_t distance(std::string_view a, std::string_view b) {
  std::vector<std::size_t> row(b.size() + 1);
  std::iota(row.begin(), row.end(), 0);
  for (std::size_t i = 0; i < a.size(); ++i) {
    std::size_t diagonal = std::exchange(row[0], i + 1);
    for (std::size_t j = 0; j < b.size(); ++j) {
      const std::size_t changed = diagonal + (a[i] != b[j]);
      diagonal = row[j + 1];
      row[j + 1] = std::min({changed, diagonal + 1, row[j] + 1});
    }
  }
  return row.back();
}

std::vector<std::string> namesOf(Command command) {
  std::vector<std::string> names;
  for (const OptionText& option : optionsOf(command))
    if (const std::size_t begin = option.names.find("--"); begin != std::string::npos)
      names.push_back(option.names.substr(begin));
  return names;
}

/// What the help of a command is asked with.
std::string callOf(const CommandText& command) {
  const std::string name(command.name);
  return command.command == Command::sync ? "kestrel-align" : "kestrel-align " + name;
}

}  // namespace

std::string_view likelyName(std::string_view word, std::span<const std::string> names) {
  const auto far = [&](const std::string& name) { return distance(word, name); };
  const auto nearest = std::ranges::min_element(names, {}, far);
  // a third of the letters may be wrong, but not so many that any short name would do
  if (nearest != names.end() && far(*nearest) <= std::max<std::size_t>(1, word.size() / 3))
    return *nearest;
  const auto begun = std::ranges::find_if(
      names, [&](const std::string& name) { return word.size() > 3 && name.starts_with(word); });
  return begun == names.end() ? std::string_view() : *begun;
}

std::string unknownOption(std::string_view word, Command command) {
  word = word.substr(0, word.find('='));
  const std::vector<std::string> names = namesOf(command);
  const std::string problem = "There is no option " + std::string(word);
  for (const CommandText& other : commands())
    if (const auto theirs = namesOf(other.command); std::ranges::count(theirs, word) > 0)
      return problem + " here; it belongs to " + callOf(other);
  const std::string_view meant = likelyName(word, names);
  return meant.empty() ? problem : problem + "; did you mean " + std::string(meant) + '?';
}

std::string wrongCount(const OptionText& option, bool tooOften) {
  if (tooOften) return option.names + " is given more than once; give it once";
  return option.names + " needs something after it: " + option.value + " (" + option.description +
         ')';
}

}  // namespace cli
