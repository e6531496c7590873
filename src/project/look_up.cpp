#include "project/look_up.h"

#include <algorithm>
#include <cmath>

namespace project {
namespace {

constexpr double kSureConfidence = 0.95;
constexpr double kHalfFrame = 0.02;  // seconds, of 25 frames a second
constexpr double kSamePlace = 0.02;  // seconds

template <class Things>
auto findIn(Things& things, Id id) -> decltype(&things.front()) {
  const auto found =
      std::ranges::find_if(things, [&](const auto& thing) { return thing.id == id; });
  return found == things.end() ? nullptr : &*found;
}

template <class Clips>
auto clipIn(Clips& clips, Id recording) -> decltype(&clips.front()) {
  const auto found = std::ranges::find(clips, recording, &Clip::recording);
  return found == clips.end() ? nullptr : &*found;
}

template <class AnyProject>
auto recordingIn(AnyProject& project, Id id) -> decltype(&project.devices[0].recordings[0]) {
  for (auto& device : project.devices)
    if (auto* found = findIn(device.recordings, id)) return found;
  return nullptr;
}

template <class AnyProject>
auto clipInGroups(AnyProject& project, Id recording) -> decltype(&project.groups[0].clips[0]) {
  for (auto& group : project.groups)
    if (auto* found = clipIn(group.clips, recording)) return found;
  return nullptr;
}

/// Adds a place, or its weight to one that is as good as the same.
void note(std::vector<LikelyPlace>& places, const LikelyPlace& place) {
  const auto same = std::ranges::find_if(places, [&](const LikelyPlace& other) {
    return other.group == place.group &&
           std::abs(other.startSeconds - place.startSeconds) < kSamePlace;
  });
  if (same == places.end())
    places.push_back(place);
  else if (place.weight > same->weight)
    *same = place;
}

}  // namespace

const Device* findDevice(const Project& project, Id device) {
  return findIn(project.devices, device);
}
Device* findDevice(Project& project, Id device) { return findIn(project.devices, device); }

const Device* deviceOf(const Project& project, Id recording) {
  for (const Device& device : project.devices)
    if (findIn(device.recordings, recording)) return &device;
  return nullptr;
}

const Recording* findRecording(const Project& project, Id recording) {
  return recordingIn(project, recording);
}
Recording* findRecording(Project& project, Id recording) { return recordingIn(project, recording); }

const Group* findGroup(const Project& project, Id group) { return findIn(project.groups, group); }
Group* findGroup(Project& project, Id group) { return findIn(project.groups, group); }

const Group* groupOf(const Project& project, Id recording) {
  for (const Group& group : project.groups)
    if (clipIn(group.clips, recording)) return &group;
  return nullptr;
}

const Clip* clipOf(const Project& project, Id recording) {
  return clipInGroups(project, recording);
}
Clip* clipOf(Project& project, Id recording) { return clipInGroups(project, recording); }

Id freshId(const Project& project) {
  Id largest = 0;
  for (const Device& device : project.devices) {
    largest = std::max(largest, device.id);
    for (const Recording& recording : device.recordings) largest = std::max(largest, recording.id);
  }
  for (const Group& group : project.groups) largest = std::max(largest, group.id);
  return largest + 1;
}

std::vector<const Recording*> allRecordings(const Project& project) {
  std::vector<const Recording*> all;
  for (const Device& device : project.devices)
    for (const Recording& recording : device.recordings) all.push_back(&recording);
  return all;
}

double endOf(const Project& project, const Clip& clip) {
  const Recording* recording = findRecording(project, clip.recording);
  return clip.startSeconds + (recording ? recording->lengthSeconds : 0);
}

State stateOf(const Project& project, const Recording& recording) {
  if (!recording.usable) return State::unusable;
  const Clip* clip = clipOf(project, recording.id);
  if (!clip) return State::unplaced;
  if (clip->excluded) return State::excluded;
  if (clip->confirmed) return State::sure;
  if (clip->placedBy == PlacedBy::hand) return State::byHand;
  if (clip->placedBy == PlacedBy::clock) return State::byClock;
  const bool exact = clip->errorSeconds.value_or(0) < kHalfFrame;
  return clip->confidence >= kSureConfidence && exact ? State::sure : State::lookHere;
}

std::vector<LikelyPlace> likelyPlaces(const Project& project, Id recording) {
  std::vector<LikelyPlace> places;
  for (const PairEvidence& pair : project.evidence) {
    if (pair.first != recording && pair.second != recording) continue;
    const Id other = pair.first == recording ? pair.second : pair.first;
    const Group* group = groupOf(project, other);
    if (!group || other == recording) continue;
    const double start = clipIn(group->clips, other)->startSeconds;
    for (const Likely& place : pair.places) {
      const double offset = pair.second == recording ? place.offsetSeconds : -place.offsetSeconds;
      note(places, {group->id, start + offset, place.weight, other});
    }
  }
  std::ranges::stable_sort(places, std::ranges::greater{}, &LikelyPlace::weight);
  return places;
}

}  // namespace project
