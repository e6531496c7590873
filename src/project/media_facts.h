#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace project {

// What is known of one media file without listening to it. Plain values throughout, so that they
// can be kept, compared and handed to other threads; what a file does not tell is 0 or empty.

/// A rate as an exact fraction: `units` in `seconds` seconds, such as 30000 frames in 1001 s.
struct Rate {
  std::int64_t units = 0;  // 0: unknown
  std::int64_t seconds = 1;

  bool known() const { return units > 0 && seconds > 0; }
  double perSecond() const { return double(units) / double(seconds); }
  bool operator==(const Rate&) const = default;
};

enum class Scan { progressive, topFieldFirst, bottomFieldFirst };

/// The picture, of the first picture stream.
struct Picture {
  Rate rate;                  // of a variable rate the mean; unknown in some streams
  bool variableRate = false;  // frames come at no fixed rate
  int width = 0, height = 0;  // pixels as they are stored, before the rotation
  int rotation = 0;           // degrees clockwise at which it is shown: 0, 90, 180 or 270
  double pixelAspect = 1;     // width of a pixel by its height
  Scan scan = Scan::progressive;
  double lengthSeconds = 0;
  bool operator==(const Picture&) const = default;
};

/// One sound stream.
struct Sound {
  int channels = 0;
  int rate = 0;                     // Hz
  int bits = 0;                     // of a sample; 0 also where a codec has none
  std::vector<std::string> layout;  // a name a channel, "L", "R", "C", "LFE"; empty: not told
  double lengthSeconds = 0;
  double startSeconds = 0;  // after the picture's start; 0 without a picture
  int index = -1;           // among all streams of the file, from 0; -1: not told
  bool operator==(const Sound&) const = default;
};

/// The moment at which a file's material begins, counted from midnight by the device's own clock:
/// whole frames of a camera, whole samples of a recorder.
struct Timecode {
  Rate rate;               // what is counted
  std::int64_t units = 0;  // since midnight; with drop-frame numbering still the frames that passed
  bool dropFrame = false;  // how the number is shown
  double seconds() const { return rate.known() ? double(units) / rate.perSecond() : 0; }
  bool operator==(const Timecode&) const = default;
};

struct MediaFacts {
  std::optional<Picture> picture;
  std::vector<Sound> sounds;         // in the order of the file
  std::optional<Timecode> timecode;  // none: the file begins at 0
  std::string deviceModel;           // of the camera or recorder, as it wrote it; may be empty
  /// When recording began by the device's clock, as the file tells: seconds since 1970, in the time
  /// zone of the device, so that only differences within one device mean something; 0: not told.
  std::int64_t recordedAt = 0;
  double lengthSeconds = 0;  // of the whole file
  bool operator==(const MediaFacts&) const = default;
};

}  // namespace project
