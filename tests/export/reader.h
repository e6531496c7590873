#pragma once

#include <compare>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <vector>

#include "export/frame_rate.h"

/// Plain readers of the documents, as an editor would read them: every reference is followed, and
/// whatever does not hold together throws.
namespace reader {

/// One clip, its times in the units of the document's timeline.
struct Placed {
  std::string group, path;
  int channel;  // 0: the picture
  std::int64_t start, end, in;
  int track;           // from 1, pictures and sound apart (Vegas: together)
  double soundAt = 0;  // sound that is exact: where its first sample would stand, in seconds
  bool operator==(const Placed& other) const { return (*this <=> other) == 0; }
  /// By place, not by track.
  std::strong_ordering operator<=>(const Placed& other) const;
};

/// `complete`: also follows links and master clips, and takes a file's definition once only.
std::vector<Placed> xmeml(const std::string& text, bool complete);
std::vector<Placed> fcpxml(const std::string& text, timeline::FrameRate rate);
std::vector<Placed> otio(const std::string& text, timeline::FrameRate rate);
std::vector<Placed> mlt(const std::string& text);
/// Channel 1 and `soundAt` alone; a clip is as long as its file.
std::vector<Placed> reaper(const std::string& text);
std::vector<Placed> vegas(const std::string& text, const std::string& group);

}  // namespace reader
