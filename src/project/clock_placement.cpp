#include "project/clock_placement.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <optional>
#include <vector>

#include "project/look_up.h"
#include "project/tidy.h"

namespace project {
namespace {

constexpr double kExactness = 2;  // seconds: times are whole ones, and cameras begin when they can
constexpr std::size_t kFewest = 2;  // clips; fewer tell nothing of the spread

/// When each recording of one device began by its clock, in seconds; one kind of time for all.
std::map<Id, double> clockOf(const Device& device) {
  const bool told = std::ranges::all_of(device.recordings, [](const Recording& recording) {
    return mainFile(recording).facts.recordedAt > 0;
  });
  std::map<Id, double> times;
  for (const Recording& recording : device.recordings) {
    const MediaFile& file = mainFile(recording);
    if (told)
      times[recording.id] = static_cast<double>(file.facts.recordedAt);
    else if (file.modified > 0)
      times[recording.id] = static_cast<double>(file.modified) - recording.lengthSeconds;
  }
  return times;
}

/// How a device's clock stands to the timeline of a group.
struct Standing {
  Id group = 0;
  double offset = 0;  // the group's time minus the clock's, seconds
  double spread = 0;  // the largest distance of a clip from that
  std::size_t clips = 0;
};

double medianOf(std::vector<double> values) {
  const auto middle = values.begin() + std::ptrdiff_t(values.size() / 2);
  std::ranges::nth_element(values, middle);
  return *middle;
}

std::optional<Standing> standingIn(const Group& group, const std::map<Id, double>& clock) {
  std::vector<double> offsets;
  for (const Clip& clip : group.clips)
    if (const auto time = clock.find(clip.recording); time != clock.end())
      offsets.push_back(clip.startSeconds - time->second);
  if (offsets.size() < kFewest) return {};
  Standing standing{group.id, medianOf(offsets), 0, offsets.size()};
  for (const double offset : offsets)
    standing.spread = std::max(standing.spread, std::abs(offset - standing.offset));
  if (standing.spread > kExactness) return {};
  return standing;
}

/// The standing that most clips speak for.
std::optional<Standing> standingOf(const Project& project, const std::map<Id, double>& clock) {
  std::optional<Standing> best;
  for (const Group& group : project.groups)
    if (const auto standing = standingIn(group, clock))
      if (!best || standing->clips > best->clips) best = standing;
  return best;
}

struct Span {
  double start, end;
};

bool overlap(const Span& a, const Span& b) { return a.start < b.end && b.start < a.end; }

/// `wanted`, moved by no more than the clock's exactness so that it touches what it would overlap;
/// none where that is not enough.
std::optional<Span> beside(Span wanted, const std::vector<Span>& taken) {
  const double length = wanted.end - wanted.start;
  for (const Span& other : taken) {
    if (!overlap(wanted, other)) continue;
    const double later = other.end - wanted.start, earlier = wanted.end - other.start;
    if (std::min(later, earlier) > kExactness) return {};
    wanted.start = later <= earlier ? other.end : other.start - length;
    wanted.end = wanted.start + length;
  }
  const auto isFree = [&](const Span& other) { return !overlap(wanted, other); };
  return std::ranges::all_of(taken, isFree) ? std::optional(wanted) : std::nullopt;
}

void placeDevice(Project& project, const Device& device) {
  const std::map<Id, double> clock = clockOf(device);
  const std::optional<Standing> standing = standingOf(project, clock);
  if (!standing) return;
  Group& group = *findGroup(project, standing->group);
  std::vector<Span> taken;
  for (const Clip& clip : group.clips)
    if (deviceOf(project, clip.recording)->id == device.id)
      taken.push_back({clip.startSeconds, endOf(project, clip)});
  for (const Recording& recording : device.recordings) {
    const bool open = recording.usable && recording.lengthSeconds > 0 &&
                      !clipOf(project, recording.id) && clock.contains(recording.id);
    if (!open) continue;
    const double start = clock.at(recording.id) + standing->offset;
    const auto place = beside({start, start + recording.lengthSeconds}, taken);
    if (!place) continue;
    Clip clip;
    clip.recording = recording.id;
    clip.startSeconds = place->start;
    clip.placedBy = PlacedBy::clock;
    clip.errorSeconds = kExactness;
    group.clips.push_back(clip);
    taken.push_back(*place);
  }
}

bool isByClockAlone(const Clip& clip) {
  return clip.placedBy == PlacedBy::clock && !clip.pinned && !clip.confirmed;
}

}  // namespace

Project placeByClock(Project project) {
  for (Group& group : project.groups) std::erase_if(group.clips, isByClockAlone);
  tidy(project);
  const std::vector<Device> devices = project.devices;
  for (const Device& device : devices) placeDevice(project, device);
  tidy(project);
  return project;
}

}  // namespace project
