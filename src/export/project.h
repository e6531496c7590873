#pragma once

#include <limits>
#include <optional>
#include <string>
#include <vector>

#include "project/project.h"

namespace timeline {

/// One media file as the documents describe it.
struct Media {
  std::string path;  // UTF-8, as the user gave it
  project::MediaFacts facts;
  double pictureSeconds = 0;  // exact; 0: no picture
  double soundSeconds = 0;    // where the sound ends, from the file's start; exact; 0: no sound
  int device = -1;            // files of one device (>= 0) never overlap; -1 = its own
  std::string deviceName;     // as people call it; empty: its first file's name
  int heardStream = 0;        // the sound stream that was listened to
};

inline constexpr double kToItsEnd = std::numeric_limits<double>::infinity();

/// Where a clip would begin, and how much faster it would have to be played, if its clock were to
/// run as the group's: for editors that can stretch sound.
struct Steady {
  double startSeconds, playRate;
};

/// A media file, or a piece of one, standing on a group's timeline.
struct Clip {
  int media;                                // index into Project::media
  double startSeconds;                      // exact, >= 0, from the group's earliest clip
  double confidence = 0;                    // 0 to 1
  std::optional<double> errorSeconds = {};  // of the place, estimated
  double sourceSeconds = 0;                 // the moment of the file that stands at the start
  double lengthSeconds = kToItsEnd;         // of the piece
  std::optional<double> driftPpm = {};      // what is left of the clock's drift against the group's
  std::optional<double> oneClockStart = {};  // its start where all run by one clock, by the sound
  std::optional<Steady> steady = {};
  project::PlacedBy placedBy = project::PlacedBy::sound;
};

struct Group {
  std::string name;         // "Group 1"
  std::vector<Clip> clips;  // by start
  /// How much later than its earliest clip the group begins on the frames; none: as suits it best.
  std::optional<double> phaseSeconds = {};
};

/// Everything that the writers need; they return text and touch no disk.
struct Project {
  double fps = 25;  // 23.976 24 25 29.97 30 50 59.94 60; the exact rate follows from it
  int width = 1920, height = 1080;
  std::vector<Media> media;
  std::vector<Group> groups;
  std::vector<int> unsynced;  // indices into media
  bool cameraSound = false;   // cameras sound although a recorder covers them
};

}  // namespace timeline
