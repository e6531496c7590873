#include "export/lanes.h"

#include <algorithm>
#include <map>
#include <numeric>
#include <string>
#include <tuple>

#include "export/text.h"

namespace timeline {

std::vector<Item> onGrid(const Project& project, const Group& group, const Grid& grid) {
  if (group.clips.empty()) return {};
  const double first = std::ranges::min(group.clips, {}, &Clip::startSeconds).startSeconds;
  std::vector<Item> items;
  for (const Clip& clip : group.clips) {
    const double start = clip.startSeconds - first;
    const std::int64_t length = wholeUnits(project.media[clip.media].durationSeconds, grid.rate);
    const std::int64_t unit =
        grid.startsDown ? wholeUnits(start, grid.rate) : nearestUnit(start, grid.rate);
    if (length > 0) items.push_back({clip.media, start, clip.confidence, unit, length});
  }
  std::ranges::stable_sort(items, {}, [](const Item& item) { return item.startSeconds; });
  return items;
}

std::vector<Lane> lanes(std::span<const Item> items, std::span<const int> keys) {
  std::map<int, std::vector<Lane>> byKey;
  for (const Item& item : items) {
    std::vector<Lane>& ofKey = byKey[keys[item.media]];
    const auto free = std::ranges::find_if(
        ofKey, [&](const Lane& lane) { return lane.back().end() <= item.start; });
    if (free == ofKey.end())
      ofKey.push_back({item});
    else
      free->push_back(item);
  }
  std::vector<Lane> all;
  for (auto& [key, ofKey] : byKey) std::ranges::move(ofKey, std::back_inserter(all));
  return all;
}

std::vector<int> deviceKeys(const Project& project) {
  std::map<int, int> keyOfDevice;
  std::vector<int> keys;
  int next = 0;
  for (const Media& media : project.media) {
    if (media.device < 0)
      keys.push_back(next++);
    else if (const auto [known, isNew] = keyOfDevice.try_emplace(media.device, next); isNew)
      keys.push_back(next++);
    else
      keys.push_back(known->second);
  }
  return keys;
}

std::int64_t endOf(std::span<const Item> items) {
  std::int64_t end = 0;
  for (const Item& item : items) end = std::max(end, item.end());
  return end;
}

Group unsyncedInARow(const Project& project, FrameRate rate) {
  const std::vector<int> keys = deviceKeys(project);
  std::vector<int> order = project.unsynced;
  std::ranges::stable_sort(order, {}, [&](int index) {
    return std::tuple(keys[index], fileName(project.media[index].path));
  });
  Group row{"Unsynced", {}};
  std::int64_t next = 0;
  for (const int index : order) {
    row.clips.push_back({index, toSeconds(next, rate), 0});
    next += wholeUnits(project.media[index].durationSeconds, rate);
  }
  return row;
}

std::vector<int> groupedMedia(const Project& project) {
  std::vector<int> used;
  for (const Group& group : project.groups)
    for (const Clip& clip : group.clips) used.push_back(clip.media);
  std::ranges::sort(used);
  const auto repeated = std::ranges::unique(used);
  used.erase(repeated.begin(), repeated.end());
  return used;
}

}  // namespace timeline
