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

// More than any file or shoot has, and little enough that frames and samples can be counted.
constexpr double kMost = 1e9;

bool isTime(double seconds) { return std::abs(seconds) <= kMost; }
bool isCount(double count) { return count >= 0 && count <= kMost; }
bool isRate(const Rate& rate) {
  return isCount(double(rate.units)) && isCount(double(rate.seconds));
}

bool canBe(const Picture& picture) {
  return isRate(picture.rate) && isCount(picture.width) && isCount(picture.height) &&
         isCount(picture.pixelAspect) && isTime(picture.lengthSeconds);
}

bool canBe(const Sound& sound) {
  return isCount(sound.channels) && isCount(sound.rate) && isCount(sound.bits) &&
         (sound.layout.empty() || std::ssize(sound.layout) == sound.channels) &&
         isTime(sound.lengthSeconds) && isTime(sound.startSeconds);
}

bool canBe(const MediaFacts& facts) {
  return (!facts.picture || canBe(*facts.picture)) &&
         std::ranges::all_of(facts.sounds, [](const Sound& sound) { return canBe(sound); }) &&
         (!facts.timecode ||
          (isRate(facts.timecode->rate) && isCount(facts.timecode->seconds()))) &&
         isTime(facts.lengthSeconds);
}

bool canBeHeard(const Recording& recording) {
  const auto streams = std::ssize(recording.files.front().facts.sounds);
  return recording.heardStream >= 0 && (streams == 0 || recording.heardStream < streams);
}

std::string problemOfRecordings(const Project& project) {
  for (const Recording* recording : allRecordings(project)) {
    const auto noPlace = [](const MediaFile& file) { return file.path.empty(); };
    if (recording->files.empty() || std::ranges::any_of(recording->files, noPlace))
      return numbered("no file is named for recording ", recording->id);
    if (!(recording->lengthSeconds >= 0))
      return "the length of recording " + std::to_string(recording->id) + " is below 0";
    if (!isCount(recording->lengthSeconds) || !isTime(recording->soundStartSeconds))
      return numbered("no recording is as long as recording ", recording->id);
    const auto isFile = [](const MediaFile& file) { return canBe(file.facts); };
    if (!std::ranges::all_of(recording->files, isFile) || !canBeHeard(*recording))
      return numbered("no file is as those of recording ", recording->id) + " are said to be";
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
      if (!isTime(clip.startSeconds) || !isTime(clip.errorSeconds.value_or(0)) ||
          !isTime(clip.driftPpm.value_or(0)) || !isTime(clip.oneClockShiftSeconds.value_or(0)))
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
