#include "run/project_report.h"

#include <cmath>
#include <map>

#include "project/look_up.h"
#include "report/text.h"
#include "run/project_stage.h"

namespace run {
namespace {

using project::Id;
using project::Project;

/// Devices as people count them.
std::map<Id, int> deviceNumbers(const Project& project) {
  std::map<Id, int> numbers;
  int number = 0;
  for (const project::Device& device : project.devices) {
    ++number;
    for (const project::Recording& recording : device.recordings) numbers[recording.id] = number;
  }
  return numbers;
}

bool isShown(const Project& project, const project::Clip& clip) {
  const bool byClock = clip.placedBy == project::PlacedBy::clock;
  return !clip.excluded && (!byClock || project.settings.clipsByClock);
}

report::PlacedBy placedBy(const project::Clip& clip) {
  switch (clip.placedBy) {
    case project::PlacedBy::hand:
      return report::PlacedBy::hand;
    case project::PlacedBy::clock:
      return report::PlacedBy::clock;
    case project::PlacedBy::sound:
      break;
  }
  return report::PlacedBy::sound;
}

Member memberOf(const Project& project, const project::Clip& clip) {
  const project::Recording& recording = *findRecording(project, clip.recording);
  Member member;
  member.path = mainFile(recording).path;
  member.offsetSeconds = clip.startSeconds;
  member.durationSeconds = recording.lengthSeconds;
  if (const auto& picture = mainFile(recording).facts.picture; picture && picture->rate.known())
    member.frameRate = std::round(picture->rate.perSecond() * 1000) / 1000;  // 29.97
  member.placedBy = placedBy(clip);
  member.confidence = clip.confidence;
  member.driftPpm = clip.driftPpm;
  member.errorSeconds = clip.errorSeconds;
  for (const Id other : clip.matchedWith)
    member.matchedWith.push_back(mainFile(*findRecording(project, other)).path);
  return member;
}

Group groupOf(const Project& project, const project::Group& placed,
              const std::map<Id, int>& devices) {
  Group group{placed.name, {}};
  for (const project::Clip& clip : placed.clips) {
    if (!isShown(project, clip)) continue;
    group.members.push_back(memberOf(project, clip));
    group.members.back().device = devices.at(clip.recording);
  }
  if (group.members.empty()) return group;
  const double origin = group.members.front().offsetSeconds;  // clips are in order
  for (Member& member : group.members) member.offsetSeconds -= origin;
  return group;
}

LeftOut leftOut(const project::Recording& recording, const project::Clip* clip) {
  const std::string& path = mainFile(recording).path;
  if (clip && !clip->excluded)
    return {path,
            "No sound places it. By its device's clock it begins " +
                report::clockText(clip->startSeconds) + " into its group, to about 2 s.",
            "Have it in the documents with --by-clock, or place it by hand."};
  if (clip) return {path, "It was excluded by hand.", "Include it again if it is wanted."};
  if (recording.leftOut) return {path, recording.leftOut->reason, recording.leftOut->remedy};
  return {path, "It was not compared yet.", "Synchronise the project."};
}

}  // namespace

Outcome outcomeOf(const Project& project) {
  Outcome outcome;
  const std::map<Id, int> devices = deviceNumbers(project);
  for (const project::Group& placed : project.groups) {
    Group group = groupOf(project, placed, devices);
    if (!group.members.empty()) outcome.groups.push_back(std::move(group));
  }
  for (const project::Recording* recording : allRecordings(project)) {
    const project::Clip* clip = clipOf(project, recording->id);
    if (!recording->usable)
      outcome.ignored.push_back(leftOut(*recording, nullptr));
    else if (!clip || !isShown(project, *clip))
      outcome.unsynced.push_back(leftOut(*recording, clip));
  }
  outcome.outputs = project.written.files;
  outcome.notices = project.written.notices;
  return outcome;
}

void showProject(const Project& project, Outcome& outcome) {
  std::map<std::string, std::string> sounds;  // by whole path
  for (const Group& group : outcome.groups)
    for (const Member& member : group.members)
      sounds[pathInProject(member.path)] = member.soundPath;
  Outcome now = outcomeOf(project);
  for (Group& group : now.groups)
    for (Member& member : group.members) member.soundPath = sounds[member.path];
  outcome.groups = std::move(now.groups);
  outcome.unsynced = std::move(now.unsynced);
  outcome.ignored = std::move(now.ignored);
}

}  // namespace run
