#include "export/from_project.h"

#include <algorithm>
#include <map>

#include "project/look_up.h"

namespace timeline {
namespace {

constexpr double kUsualRate = 25;  // frames per second, where the project chooses none

Media mediaOf(const project::Recording& recording, const project::MediaFile& file) {
  Media media;
  media.path = file.path;
  media.durationSeconds =
      &file == &recording.files.front() ? recording.lengthSeconds : file.facts.lengthSeconds;
  const auto& picture = file.facts.picture;
  media.hasVideo = picture.has_value();
  if (picture) {
    media.frameRate = picture->rate.perSecond();
    media.width = picture->width;
    media.height = picture->height;
  }
  if (!file.facts.sounds.empty()) {
    media.audioChannels = file.facts.sounds.front().channels;
    media.audioRate = file.facts.sounds.front().rate;
  }
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
        timeline.media.push_back(mediaOf(recording, file));
        // further tracks stand over the first, which files of one device may not
        if (several && &file == &recording.files.front()) timeline.media.back().device = number;
      }
    }
    ++number;
  }
  return indices;
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
      group.clips.push_back({media, clip->startSeconds - origin, clip->confidence});
    indices.erase(clip->recording);  // what is left at the end stands nowhere
  }
  return group;
}

}  // namespace

Project timelineOf(const project::Project& project) {
  Project timeline;
  timeline.fps = project.settings.framesPerSecond.value_or(kUsualRate);
  if (project.settings.frameSize) {
    timeline.width = project.settings.frameSize->width;
    timeline.height = project.settings.frameSize->height;
  }
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
