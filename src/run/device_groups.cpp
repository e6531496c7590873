#include "run/device_groups.h"

#include <algorithm>

#include "run/entries.h"

namespace run {

DeviceGroups deviceGroups(const std::vector<std::string>& converted) {
  const std::string begin = convertedName(kBeginMarker);
  const std::string end = convertedName(kEndMarker);
  const int length = static_cast<int>(converted.size());
  DeviceGroups groups;
  for (int i = 0; i < length; ++i) {
    if (converted[i] != begin) continue;
    std::vector<int> members;
    int j = i + 1;
    for (; j < length && converted[j] != end; ++j) members.push_back(j);
    if (j < length) i = j;  // an open group ends nowhere: the next entry is looked at again
    if (members.size() >= 2) groups.push_back(std::move(members));
  }
  return groups;
}

std::vector<int> devicesOf(const DeviceGroups& groups, int count) {
  std::vector<int> devices(count, -1);
  for (std::size_t device = groups.size(); device-- > 0;)  // backwards, so that the first one wins
    for (const int file : groups[device])
      if (file < count) devices[file] = static_cast<int>(device);
  return devices;
}

bool shareGroup(const DeviceGroups& groups, int first, int second) {
  const auto holds = [](const std::vector<int>& group, int file) {
    return std::ranges::find(group, file) != group.end();
  };
  return std::ranges::any_of(groups, [&](const std::vector<int>& group) {
    return holds(group, first) && holds(group, second);
  });
}

}  // namespace run
