#pragma once

#include <string>
#include <vector>

namespace timeline {

/// One media file as the documents describe it. What was not reported is 0.
struct Media {
  std::string path;            // UTF-8, as the user gave it
  double durationSeconds = 0;  // exact
  bool hasVideo = false;
  double frameRate = 0;       // frames per second, as reported
  int width = 0, height = 0;  // pixels
  bool hasAudio = true;
  int audioChannels = 0;
  int audioRate = 0;  // Hz
  int device = -1;    // files of one device (>= 0) never overlap; -1 = its own
};

/// A media file standing on a group's timeline.
struct Clip {
  int media;              // index into Project::media
  double startSeconds;    // exact, >= 0, from the group's earliest clip
  double confidence = 0;  // 0 to 1
};

struct Group {
  std::string name;         // "Group 1"
  std::vector<Clip> clips;  // by start
};

/// Everything that the writers need; they return text and touch no disk.
struct Project {
  double fps = 25;  // 23.976 24 25 29.97 30 50 59.94 60; the exact rate follows from it
  int width = 1920, height = 1080;
  std::vector<Media> media;
  std::vector<Group> groups;
  std::vector<int> unsynced;  // indices into media
};

}  // namespace timeline
