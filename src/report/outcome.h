#pragma once

#include <optional>
#include <string>
#include <vector>

namespace report {

/// Who says where a recording stands.
enum class PlacedBy { sound, hand, clock };

/// A recording at its place. Offsets count from the group's earliest member.
struct Member {
  std::string path;
  double offsetSeconds = 0;
  double durationSeconds = 0;       // exact
  std::optional<double> frameRate;  // none for sound
  PlacedBy placedBy = PlacedBy::sound;
  double confidence = 0;                 // 0 to 1, of what the sound says
  int device = 0;                        // from 1; files of one device share it
  std::optional<double> driftPpm;        // its clock against the group's
  std::optional<double> errorSeconds;    // estimated error of the position
  std::optional<double> leftOutOfSync;   // seconds that its drift leaves it out in the documents
  std::vector<std::string> matchedWith;  // paths, strongest first
  std::string soundPath;                 // the converted 8000 Hz sound, for drawing; may be empty
};

struct Group {
  std::string name;  // "Group 1"
  std::vector<Member> members;
};

/// A file without a place: why, in plain English, and what to do about it.
struct LeftOut {
  std::string path;
  std::string reason;
  std::string remedy;
};

/// What a run found and wrote, for window, command line and text files to show.
struct Outcome {
  std::string status;  // first element of the result list
  std::vector<Group> groups;
  std::vector<LeftOut> unsynced;     // usable, but nothing matches
  std::vector<LeftOut> ignored;      // not usable
  std::vector<std::string> outputs;  // files written, whole paths
  std::vector<std::string>
      notices;          // plain sentences: doubts, missing programs, unwritable folders
  std::string project;  // the file that keeps all of it, whole path; empty: none was written
  std::vector<std::string> failures;  // of the notices those that say what was not written or begun
  bool cancelled = false;
  bool refused = false;  // nothing came of it: not begun, or broken off by a fault
};

}  // namespace report
