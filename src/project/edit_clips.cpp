#include <algorithm>

#include "project/edit.h"
#include "project/look_up.h"
#include "project/tidy.h"

namespace project {
namespace {

/// The place is now somebody's word, no longer a measurement.
void setByHand(Clip& clip, double startSeconds) {
  clip.startSeconds = startSeconds;
  clip.placedBy = PlacedBy::hand;
  clip.confidence = 1;
  clip.errorSeconds.reset();
}

template <class Change>
Project changeClips(Project project, std::span<const Id> recordings, const Change& change) {
  for (const Id recording : recordings)
    if (Clip* clip = clipOf(project, recording)) change(*clip);
  tidy(project);
  return project;
}

/// The recording's clip, taken out of its group; a new one if it has none.
Clip takeClip(Project& project, Id recording) {
  Clip clip;
  clip.recording = recording;
  if (const Clip* present = clipOf(project, recording)) clip = *present;
  for (Group& group : project.groups)
    std::erase_if(group.clips, [&](const Clip& other) { return other.recording == recording; });
  return clip;
}

Group& groupFor(Project& project, Id id) {
  if (Group* group = findGroup(project, id)) return *group;
  Group group;
  group.id = freshId(project);
  group.name = freshGroupName(project);
  return project.groups.emplace_back(std::move(group));
}

}  // namespace

Project moveClips(Project project, std::span<const Id> recordings, double seconds) {
  if (seconds == 0) return project;
  return changeClips(std::move(project), recordings,
                     [&](Clip& clip) { setByHand(clip, clip.startSeconds + seconds); });
}

Project placeClip(Project project, Id recording, Id group, double startSeconds) {
  Recording* found = findRecording(project, recording);
  if (!found || (group != 0 && !findGroup(project, group))) return project;
  found->leftOut.reset();
  Group& target = groupFor(project, group);
  const Id stays = target.id;  // the group may move in memory no more, but its clips do
  Clip clip = takeClip(project, recording);
  setByHand(clip, startSeconds);
  findGroup(project, stays)->clips.push_back(std::move(clip));
  tidy(project);
  return project;
}

Project unplaceClips(Project project, std::span<const Id> recordings) {
  for (const Id recording : recordings) {
    Recording* found = findRecording(project, recording);
    if (!found || !clipOf(project, recording)) continue;
    (void)takeClip(project, recording);
    found->leftOut = Reason{"It was taken out by hand.", "Place it by hand, or synchronise again."};
  }
  tidy(project);
  return project;
}

Project confirmClips(Project project, std::span<const Id> recordings, bool confirmed) {
  return changeClips(std::move(project), recordings,
                     [&](Clip& clip) { clip.confirmed = confirmed; });
}

Project excludeClips(Project project, std::span<const Id> recordings, bool excluded) {
  return changeClips(std::move(project), recordings, [&](Clip& clip) { clip.excluded = excluded; });
}

Project pinClips(Project project, std::span<const Id> recordings, bool pinned) {
  return changeClips(std::move(project), recordings, [&](Clip& clip) { clip.pinned = pinned; });
}

Project joinGroups(Project project, Id first, Id second, double seconds) {
  Group* into = findGroup(project, first);
  Group* from = findGroup(project, second);
  if (!into || !from || into == from) return project;
  for (Clip& clip : from->clips) {
    setByHand(clip, clip.startSeconds + seconds);
    into->clips.push_back(std::move(clip));
  }
  from->clips.clear();
  tidy(project);
  return project;
}

}  // namespace project
