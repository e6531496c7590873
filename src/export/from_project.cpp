#include "export/from_project.h"

#include <algorithm>
#include <map>

#include "export/sequence.h"
#include "project/look_up.h"

namespace timeline {
namespace {

/// Further tracks of a recording are as long as they say themselves.
Media mediaOf(const project::Device& device, const project::Recording& recording,
              const project::MediaFile& file) {
  const bool main = &file == &recording.files.front();
  Media media;
  media.path = file.path;
  media.facts = file.facts;
  media.soundSeconds = main ? recording.lengthSeconds : file.facts.lengthSeconds;
  if (const auto& picture = file.facts.picture)
    media.pictureSeconds = picture->lengthSeconds > 0 ? picture->lengthSeconds : media.soundSeconds;
  if (main) media.heardStream = recording.heardStream;
  media.deviceName = device.name;
  return media;
}

/// The indices of each recording's files among the media.
using MediaOf = std::map<project::Id, std::vector<int>>;

bool isShown(const project::Project& project, const project::Recording& recording) {
  const project::Clip* clip = clipOf(project, recording.id);
  return recording.usable && recording.lengthSeconds > 0 && !(clip && clip->excluded);
}

MediaOf addMedia(const project::Project& project, Project& timeline) {
  MediaOf indices;
  int number = 0;
  for (const project::Device& device : project.devices) {
    const bool several = device.recordings.size() > 1;
    for (const project::Recording& recording : device.recordings) {
      if (!isShown(project, recording)) continue;
      for (const project::MediaFile& file : recording.files) {
        indices[recording.id].push_back(static_cast<int>(timeline.media.size()));
        timeline.media.push_back(mediaOf(device, recording, file));
        // further tracks stand over the first, which files of one device may not
        if (several && &file == &recording.files.front()) timeline.media.back().device = number;
      }
    }
    ++number;
  }
  return indices;
}

std::optional<double> oneClockStart(const project::Clip& clip, double origin) {
  if (!clip.oneClockShiftSeconds) return {};
  return clip.startSeconds - origin + *clip.oneClockShiftSeconds;
}

Group groupOf(const project::Project& project, const project::Group& placed, MediaOf& indices) {
  Group group{placed.name, {}};
  double origin = 0;
  std::vector<const project::Clip*> clips;
  for (const project::Clip& clip : placed.clips) {
    const bool wanted = clip.placedBy != project::PlacedBy::clock || project.settings.clipsByClock;
    if (clip.excluded || !wanted || !indices.contains(clip.recording)) continue;
    clips.push_back(&clip);
    origin = std::min(origin, clip.startSeconds);
  }
  for (const project::Clip* clip : clips) {
    for (const int media : indices[clip->recording])
      group.clips.push_back({.media = media,
                             .startSeconds = clip->startSeconds - origin,
                             .confidence = clip->confidence,
                             .errorSeconds = clip->errorSeconds,
                             .driftPpm = clip->driftPpm,
                             .oneClockStart = oneClockStart(*clip, origin),
                             .placedBy = clip->placedBy});
    indices.erase(clip->recording);  // what is left at the end stands nowhere
  }
  return group;
}

}  // namespace

Project timelineOf(const project::Project& project) {
  Project timeline;
  const Sequence sequence = sequenceOf(project);
  timeline.fps = sequence.fps;
  timeline.width = sequence.width;
  timeline.height = sequence.height;
  timeline.cameraSound = project.settings.cameraSound;
  MediaOf indices = addMedia(project, timeline);
  for (const project::Group& placed : project.groups) {
    Group group = groupOf(project, placed, indices);
    if (!group.clips.empty()) timeline.groups.push_back(std::move(group));
  }
  for (const auto& [recording, media] : indices)
    timeline.unsynced.insert(timeline.unsynced.end(), media.begin(), media.end());
  std::ranges::sort(timeline.unsynced);
  return timeline;
}

}  // namespace timeline
