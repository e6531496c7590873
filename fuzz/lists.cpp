// A list of files is any file that a user names: lines, and the devices that marker lines make.
#include "cli/text_list.h"
#include "fuzz/input.h"
#include "run/device_groups.h"
#include "run/entries.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const cli::TextList list = cli::linesOf(std::string(fuzz::textOf(data, size)));
  fuzz::require(list.error.empty() || list.lines.empty(), "lines or an error");
  std::vector<std::string> entries;
  for (const std::string& line : list.lines) {
    fuzz::require(!line.empty() && line.find_first_of(std::string("\0\n", 2)) == line.npos,
                  "a line is a line");
    if (line == "b")  // the marker lines are too long to be found by chance
      entries.emplace_back(run::kBeginMarker);
    else
      entries.push_back(line == "e" ? std::string(run::kEndMarker) : line);
  }
  const int count = static_cast<int>(entries.size());
  const run::DeviceGroups groups = run::deviceGroups(run::convertedNames(entries));
  for (const std::vector<int>& group : groups) {
    fuzz::require(group.size() > 1, "one file alone is no group");
    for (const int file : group) fuzz::require(file > 0 && file < count, "files are in the list");
  }
  for (const int device : run::devicesOf(groups, count))
    fuzz::require(device >= -1 && device < std::ssize(groups), "devices are groups");
  return 0;
}
