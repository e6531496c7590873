#pragma once

#include <optional>
#include <string>

#include "export/element.h"
#include "export/fcpxml.h"
#include "export/frame_rate.h"

namespace timeline {

/// One group as a multicam.
struct Multicam {
  Element media;                          // the resource
  std::string id, name;                   // of the resource
  std::int64_t length;                    // frames, to the end of the longest angle
  std::optional<std::string> videoAngle;  // the angle with the most picture
  std::optional<std::string> audioAngle;  // sound alone that covers half the group, else that one
};

/// Group `number` (from 1) as a multicam, its edges on the frames of the run's rate; nothing if no
/// clip is a frame long. Sound alone stands to the sample inside its clip.
std::optional<Multicam> multicam(const Project& project, const Group& group, int number,
                                 FcpxmlVersion version);

/// The whole multicam as one clip of a sequence, from frame `offset` on.
Element multicamClip(const Multicam& multicam, std::int64_t offset, FrameRate rate,
                     FcpxmlVersion version);

}  // namespace timeline
