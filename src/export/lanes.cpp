#include "export/lanes.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <numeric>
#include <string>
#include <tuple>

#include "export/media.h"
#include "export/text.h"

namespace timeline {

namespace {

double firstStart(const Group& group) {
  return std::ranges::min(group.clips, {}, &Clip::startSeconds).startSeconds;
}

/// Seconds of a part of the file that the clip shows, when that part ends at `end` in the file.
double shown(const Clip& clip, double end) {
  return std::clamp(end - clip.sourceSeconds, 0.0, clip.lengthSeconds);
}

Item itemOf(const Media& media, const Clip& clip, double start, const Grid& grid) {
  const auto units = [&](double end) { return wholeUnits(shown(clip, end), grid.rate); };
  return {clip,
          start,
          grid.startsDown ? wholeUnits(start, grid.rate) : nearestUnit(start, grid.rate),
          nearestUnit(clip.sourceSeconds, grid.rate),
          hasPicture(media) ? units(media.pictureSeconds) : 0,
          hasSound(media) ? units(media.soundSeconds) : 0};
}

/// Where the clips begin within their units, from 0 to 1, by size.
std::vector<double> phases(const Project& project, const Group& group, FrameRate rate,
                           bool pictures) {
  std::vector<double> result;
  const double first = firstStart(group), unit = toSeconds(1, rate);
  for (const Clip& clip : group.clips) {
    if (hasPicture(project.media[clip.media]) != pictures) continue;
    const double units = (clip.startSeconds - first) / unit;
    result.push_back(units - std::floor(units));
  }
  std::ranges::sort(result);
  return result;
}

}  // namespace

std::vector<Item> onGrid(const Project& project, const Group& group, const Grid& grid) {
  if (group.clips.empty()) return {};
  const double first = firstStart(group);
  const double phase = grid.startsDown      ? 0
                       : group.phaseSeconds ? *group.phaseSeconds
                                            : bestPhase(project, group, grid.rate);
  std::vector<Item> items;
  for (const Clip& clip : group.clips) {
    const Item item =
        itemOf(project.media[clip.media], clip, clip.startSeconds - first + phase, grid);
    if (item.length() > 0) items.push_back(item);
  }
  std::ranges::stable_sort(items, {}, &Item::startSeconds);
  return items;
}

double bestPhase(const Project& project, const Group& group, FrameRate rate) {
  if (group.clips.empty()) return 0;
  std::vector<double> starts = phases(project, group, rate, true);
  if (starts.empty()) starts = phases(project, group, rate, false);
  double widest = 0, after = 0;  // the widest gap between two starts, around the unit's edge too
  for (std::size_t i = 0; i < starts.size(); ++i) {
    const double next = i + 1 < starts.size() ? starts[i + 1] : starts.front() + 1;
    if (next - starts[i] > widest + 1e-9) {
      widest = next - starts[i];
      after = next;
    }
  }
  const double middle = after + (1 - widest) / 2;  // of the starts, which lie opposite to the gap
  const double shift = std::ceil(middle - 0.5) - middle;
  return shift * toSeconds(1, rate);
}

std::vector<Lane> lanes(std::span<const Item> items, std::span<const int> keys) {
  std::map<int, std::vector<Lane>> byKey;
  for (const Item& item : items) {
    std::vector<Lane>& ofKey = byKey[keys[item.media()]];
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

std::vector<std::string> deviceNames(const Project& project) {
  const std::vector<int> keys = deviceKeys(project);
  std::map<int, std::string> named;
  for (std::size_t i = 0; i < keys.size(); ++i) {
    const Media& media = project.media[i];
    named.try_emplace(
        keys[i], media.deviceName.empty() ? std::string(fileName(media.path)) : media.deviceName);
  }
  std::vector<std::string> names;
  for (const int key : keys) names.push_back(named[key]);
  return names;
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
    row.clips.push_back({index, toSeconds(next, rate)});
    next += wholeUnits(lengthSeconds(project.media[index]), rate);
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

bool coveredByRecorders(const Project& project, const Group& group, const Clip& clip) {
  constexpr double kNearlyAll = 0.95;
  const Media& media = project.media[clip.media];
  if (!hasPicture(media)) return false;
  const double begin = clip.startSeconds, end = begin + shown(clip, media.soundSeconds);
  double reached = begin, covered = 0;
  for (const Clip& other : group.clips) {  // by start
    const Media& recorder = project.media[other.media];
    if (hasPicture(recorder) || !hasSound(recorder)) continue;
    const double from = std::max(reached, other.startSeconds);
    const double to = std::min(end, other.startSeconds + shown(other, recorder.soundSeconds));
    covered += std::max(0.0, to - from);
    reached = std::max(reached, to);
  }
  return end > begin && covered >= kNearlyAll * (end - begin);
}

}  // namespace timeline
