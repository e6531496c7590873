#include "project/check.h"

#include <algorithm>
#include <cmath>
#include <set>

#include "project/look_up.h"

namespace project {
namespace {

std::string numbered(const char* thing, Id id) { return thing + std::to_string(id); }

std::string problemOfNumbers(const Project& project) {
  std::set<Id> taken;
  const auto isBad = [&](Id id) { return id <= 0 || !taken.insert(id).second; };
  for (const Device& device : project.devices) {
    if (isBad(device.id)) return numbered("two things, or none, may be called ", device.id);
    for (const Recording& recording : device.recordings)
      if (isBad(recording.id)) return numbered("two things, or none, may be called ", recording.id);
  }
  for (const Group& group : project.groups)
    if (isBad(group.id)) return numbered("two things, or none, may be called ", group.id);
  return {};
}

std::string problemOfRecordings(const Project& project) {
  for (const Recording* recording : allRecordings(project)) {
    const auto noPlace = [](const MediaFile& file) { return file.path.empty(); };
    if (recording->files.empty() || std::ranges::any_of(recording->files, noPlace))
      return numbered("no file is named for recording ", recording->id);
    if (!(recording->lengthSeconds >= 0))
      return "the length of recording " + std::to_string(recording->id) + " is below 0";
  }
  return {};
}

std::string problemOfClips(const Project& project, const std::set<Id>& known) {
  std::set<Id> placed;
  for (const Group& group : project.groups)
    for (const Clip& clip : group.clips) {
      if (!known.contains(clip.recording))
        return numbered("a clip stands for recording ", clip.recording) + ", which is not there";
      if (!placed.insert(clip.recording).second)
        return numbered("two clips stand for recording ", clip.recording);
      if (!(std::abs(clip.startSeconds) < 1e9))
        return numbered("the place of recording ", clip.recording) + " is no time";
      for (const Id other : clip.matchedWith)
        if (!known.contains(other))
          return numbered("a clip was matched with recording ", other) + ", which is not there";
    }
  return {};
}

std::string problemOfEvidence(const Project& project, const std::set<Id>& known) {
  for (const PairEvidence& pair : project.evidence)
    for (const Id id : {pair.first, pair.second})
      if (!known.contains(id))
        return numbered("a comparison names recording ", id) + ", which is not there";
  return {};
}

}  // namespace

std::string problemOf(const Project& project) {
  std::set<Id> known;
  for (const Recording* recording : allRecordings(project)) known.insert(recording->id);
  for (const std::string& problem :
       {problemOfNumbers(project), problemOfRecordings(project), problemOfClips(project, known),
        problemOfEvidence(project, known)})
    if (!problem.empty()) return problem;
  return {};
}

}  // namespace project
