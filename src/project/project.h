#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "project/media_facts.h"

namespace project {

// One shoot: its devices, what was found of their recordings, and what was decided by hand. A plain
// value: a run fills it, documents are written from it, window and command line show and edit it,
// and a .kestrel file keeps it. Nothing in it refers to anything outside.

/// Devices, recordings and groups are known by numbers above 0 that no two of a project share and
/// that stay the same as long as the thing itself does, also through undoing and saving.
using Id = int;

/// Fields of the file that this version does not know, as a JSON object's text; mostly empty. They
/// are written again where they stood, so that a newer version loses nothing by an older one.
using Unknown = std::string;

/// One file on the disk.
struct MediaFile {
  std::string path;           // whole, UTF-8 as far as the name is, with slashes
  std::uint64_t bytes = 0;    // its length when it was last looked at; 0: never
  std::int64_t modified = 0;  // when it was last written: seconds since 1970
  MediaFacts facts;
  Unknown unknown;
  bool operator==(const MediaFile&) const = default;
};

/// Why a recording has no place, and what to do about it: sentences for people.
struct Reason {
  std::string reason, remedy;
  bool operator==(const Reason&) const = default;
};

/// What one device recorded in one go.
struct Recording {
  Id id = 0;
  /// The first is the one that is listened to. Others are further tracks of the same moment, which
  /// begin with it.
  std::vector<MediaFile> files;
  double lengthSeconds = 0;  // from the picture's start to the sound's end, exact; 0: not heard yet
  double soundStartSeconds = 0;   // after the picture's start
  int heardStream = 0;            // of the first file: the sound stream that was listened to
  bool usable = true;             // false: the file cannot be read or has no sound
  std::optional<Reason> leftOut;  // of one that a run did not place, or could not use
  Unknown unknown;
  bool operator==(const Recording&) const = default;
};

enum class DeviceKind { unknown, camera, recorder };

/// Recordings of one device never overlap.
struct Device {
  Id id = 0;
  std::string name;  // as people call it; goes into documents
  DeviceKind kind = DeviceKind::unknown;
  std::vector<Recording> recordings;  // in the order of the device
  Unknown unknown;
  bool operator==(const Device&) const = default;
};

/// Who says where a clip stands.
enum class PlacedBy { sound, hand, clock };

/// A recording standing on a group's timeline.
struct Clip {
  Id recording = 0;
  double startSeconds = 0;  // of its picture; of a sound, where it begins
  PlacedBy placedBy = PlacedBy::sound;
  double confidence = 0;               // 0 to 1, of the place that the sound gave
  std::optional<double> errorSeconds;  // estimated, of the place; none if it was not measured
  std::optional<double> driftPpm;      // clock against the group's; none where it was not measured
  /// What is to be added to the start once every recording is stretched to the group's clock.
  std::optional<double> oneClockShiftSeconds;
  std::vector<Id> matchedWith;  // recordings, strongest first
  bool confirmed = false;       // somebody looked and found it right
  bool pinned = false;          // stays where it is when clips are synchronised again
  bool excluded = false;        // keeps its place, but goes into no document
  Unknown unknown;
  bool operator==(const Clip&) const = default;
};

/// Clips on one timeline. Only differences of their starts mean something: the earliest need not
/// stand at 0, so that moving one leaves the numbers of the others alone.
struct Group {
  Id id = 0;
  std::string name;         // "Group 1"
  std::vector<Clip> clips;  // by start
  Unknown unknown;
  bool operator==(const Group&) const = default;
};

/// A place where two recordings may hear the same.
struct Likely {
  double offsetSeconds = 0;  // start of the second minus start of the first, in one timeline
  double weight = 0;         // how much speaks for it; to be compared within one pair only
  bool operator==(const Likely&) const = default;
};

/// What comparing two recordings gave, whether it was used or not.
struct PairEvidence {
  Id first = 0, second = 0;
  std::vector<Likely> places;  // the best first; never empty
  Unknown unknown;
  bool operator==(const PairEvidence&) const = default;
};

struct FrameSize {
  int width = 0, height = 0;  // pixels
  bool operator==(const FrameSize&) const = default;
};

/// What the user chose for listening and for the documents.
struct Settings {
  double tolerance = 0.99;                // the smaller, the closer the run listens
  int mode = 1;                           // the mode flag: 1 believes more pairs
  bool bySound = true;                    // false: places by the vote of the accepted pairs alone
  std::optional<double> framesPerSecond;  // of the sequence; none: as the pictures are
  std::optional<FrameSize> frameSize;     // of the sequence; none: as the pictures are
  std::vector<std::string> formats;       // names of documents; empty: the usual ones
  bool compactXmeml = false;
  bool clipsByClock = false;    // clips placed by their device's clock go into documents too
  bool cameraSound = false;     // cameras sound although a recorder covers them
  std::string drift = "sound";  // what documents do about it: "off", "sound", "pieces"
  bool replaceAudio = false;    // for each camera clip the best sound that covers it, as a file
  Unknown unknown;
  bool operator==(const Settings&) const = default;
};

/// What the last run or export left behind.
struct Written {
  std::string folder;                // of the results
  std::string time;                  // of day by the local clock, "14:05:09"
  std::vector<std::string> files;    // whole paths
  std::vector<std::string> notices;  // sentences for people
  Unknown unknown;
  bool operator==(const Written&) const = default;
};

struct Project {
  Settings settings;
  std::vector<Device> devices;
  std::vector<Group> groups;  // a recording stands in one at most
  std::vector<PairEvidence> evidence;
  Written written;
  Unknown unknown;
  bool operator==(const Project&) const = default;
};

}  // namespace project
