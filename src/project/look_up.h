#pragma once

#include <vector>

#include "project/project.h"

namespace project {

// Finding things in a project by their numbers; nullptr for a number that nothing has. What is
// returned lies in the project that was given.

const Device* findDevice(const Project& project, Id device);
const Device* deviceOf(const Project& project, Id recording);
const Recording* findRecording(const Project& project, Id recording);
const Group* findGroup(const Project& project, Id group);
const Group* groupOf(const Project& project, Id recording);
const Clip* clipOf(const Project& project, Id recording);
Device* findDevice(Project& project, Id device);
Recording* findRecording(Project& project, Id recording);
Group* findGroup(Project& project, Id group);
Clip* clipOf(Project& project, Id recording);

/// A number that nothing in the project has: one more than the largest.
Id freshId(const Project& project);

/// All recordings in the order of their devices.
std::vector<const Recording*> allRecordings(const Project& project);

/// The file that is listened to. A recording always has one.
inline const MediaFile& mainFile(const Recording& recording) { return recording.files.front(); }

/// When a clip ends on its group's timeline, in seconds.
double endOf(const Project& project, const Clip& clip);

/// How a recording is shown to people.
enum class State { sure, lookHere, byHand, byClock, excluded, unplaced, unusable };

/// "Look here" are places whose confidence is below 95 %, or that may be out by half a frame of 25
/// a second; confirming one makes it sure.
State stateOf(const Project& project, const Recording& recording);

/// Where else a recording may stand, by what it was compared with.
struct LikelyPlace {
  Id group = 0;
  double startSeconds = 0;  // on the timeline of the group
  double weight = 0;        // the most that any comparison gives it
  Id against = 0;           // the clip of that comparison
};

/// The likely places of a recording against all clips of other recordings that stand, the
/// weightiest first; places less than 20 ms apart are one.
std::vector<LikelyPlace> likelyPlaces(const Project& project, Id recording);

}  // namespace project
