#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "run/media_probe.h"
#include "run/process.h"

namespace run {

/// What a run knows of one entry of its list. The dummy and the marker lines are entries too: they
/// keep their places to the end, so that an entry's index means the same in every table.
struct Entry {
  std::string listed;        // the path or marker as it was handed in
  std::string source;        // the same, until a failure rewrites it (below)
  std::string converted;     // its converted sound
  std::string frameRate;     // as reported; "999" where there is no picture
  ProcessResult conversion;  // how ffmpeg ended
  std::string refusal;       // why ffmpeg was not asked; empty if it was
  std::string remedy;        // what to do about that
  MediaProperties media;
  bool cutShort = false;  // most of the sound that the medium speaks of is missing
  int device = -1;        // files of one device share it; -1: a device of its own
  int heardStream = 0;    // the sound stream that was listened to

  bool isFile() const;
  /// Frames per second; none for sound.
  std::optional<double> pictureRate() const;
};

// What `source` and the lists turn into when a file cannot be used.
inline constexpr std::string_view kIgnorePrefix = "IGNORE";  // then the converted name
inline constexpr std::string_view kToDrop = "trgni";         // "go away"
inline constexpr std::string_view kNoFrameRate = "999";

}  // namespace run
