#pragma once

#include <algorithm>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "export/frame_rate.h"
#include "export/project.h"

namespace timeline {

/// The whole units that a timeline counts in: frames of a rate, or milliseconds (1000/1).
struct Grid {
  FrameRate rate;
  bool startsDown = false;  // starts are cut down to whole units; false: the nearest unit
};

/// A clip on a grid, each rounded from its own exact position. Lengths are cut down to whole units.
struct Item {
  Clip clip;
  double startSeconds;                      // exact, from the timeline's beginning
  std::int64_t start, in;                   // units of the grid; in: from the file's start
  std::int64_t pictureLength, soundLength;  // what there is of each; 0: none

  int media() const { return clip.media; }
  std::int64_t length() const { return std::max(pictureLength, soundLength); }
  std::int64_t end() const { return start + length(); }
};

/// The group's clips by start, its earliest at 0. A clip shorter than one unit is left out: no
/// editor takes an empty one.
std::vector<Item> onGrid(const Project& project, const Group& group, const Grid& grid);

/// How much later than its earliest clip, in seconds, a group has to begin so that its pictures
/// (its sounds, where there is none) lie as near to the grid as they can: from half a unit before
/// to half a unit after.
double bestPhase(const Project& project, const Group& group, FrameRate rate);

/// Clips that follow one another without overlap, by start.
using Lane = std::vector<Item>;

/// Spreads `items` (by start) over lanes, by ascending key: all clips of one key share a lane as
/// long as they do not overlap; one that does goes to a further lane of that key. `keys` has one
/// key per media.
std::vector<Lane> lanes(std::span<const Item> items, std::span<const int> keys);

/// One key per media: the same for the files of one device, in the order of their first files.
std::vector<int> deviceKeys(const Project& project);

/// The name of each media's device, by media: as given, else its first file's name.
std::vector<std::string> deviceNames(const Project& project);

/// The first unit after the last clip; 0 without clips.
std::int64_t endOf(std::span<const Item> items);

/// The unsynced media as one group, end to end on whole frames of `rate`, by device and file name.
Group unsyncedInARow(const Project& project, FrameRate rate);

/// The media that the groups use, each once, in the order of Project::media.
std::vector<int> groupedMedia(const Project& project);

/// Whether recorders sound nearly all the while that `clip` of `group` does, so that the sound of
/// a camera need not. Never true of a recorder's own clip.
bool coveredByRecorders(const Project& project, const Group& group, const Clip& clip);

}  // namespace timeline
