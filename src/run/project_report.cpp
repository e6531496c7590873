#include "run/project_report.h"

#include <algorithm>
#include <map>

#include "project/look_up.h"

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

Member memberOf(const Project& project, const project::Clip& clip) {
  const project::Recording& recording = *findRecording(project, clip.recording);
  Member member;
  member.path = mainFile(recording).path;
  member.offsetSeconds = clip.startSeconds;
  member.durationSeconds = recording.lengthSeconds;
  if (const auto& picture = mainFile(recording).facts.picture; picture && picture->rate.known())
    member.frameRate = picture->rate.perSecond();
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
    if (clip.excluded) continue;
    group.members.push_back(memberOf(project, clip));
    group.members.back().device = devices.at(clip.recording);
  }
  if (group.members.empty()) return group;
  const double origin = group.members.front().offsetSeconds;  // clips are in order
  for (Member& member : group.members) member.offsetSeconds -= origin;
  return group;
}

LeftOut leftOut(const project::Recording& recording, bool excluded) {
  const std::string& path = mainFile(recording).path;
  if (excluded) return {path, "It was excluded by hand.", "Include it again if it is wanted."};
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
      outcome.ignored.push_back(leftOut(*recording, false));
    else if (!clip || clip->excluded)
      outcome.unsynced.push_back(leftOut(*recording, clip != nullptr));
  }
  outcome.outputs = project.written.files;
  outcome.notices = project.written.notices;
  return outcome;
}

}  // namespace run
