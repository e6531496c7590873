#pragma once

#include <optional>
#include <string>
#include <vector>

#include "export/edit.h"
#include "export/element.h"
#include "export/fcpxml.h"
#include "export/frame_rate.h"

namespace timeline {

/// One group as a multicam, and how it is cut.
struct Multicam {
  Element media;         // the resource
  std::string id, name;  // of the resource
  std::int64_t length;   // frames, to the end of the longest angle
  std::vector<std::string> angles;
  std::vector<Cut> cuts;  // by angle; they cover the whole length
};

/// Group `number` (from 1) as a multicam, its edges on the frames of the run's rate; nothing if no
/// clip is a frame long. Sound alone stands to the sample inside its clip.
std::optional<Multicam> multicam(const Project& project, const Group& group, int number,
                                 FcpxmlVersion version);

/// The multicam in a sequence, from frame `offset` on: a clip for each cut.
std::vector<Element> multicamClips(const Multicam& multicam, std::int64_t offset, FrameRate rate,
                                   FcpxmlVersion version);

}  // namespace timeline
