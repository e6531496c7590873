#pragma once

#include <optional>
#include <string_view>

#include "run/media_fields.h"

namespace run {

/// Reads "10:00:00:12" or "01:00:00;02" at `rate` frames: whole frames since midnight. Drop-frame
/// numbering leaves out two numbers a minute (four near 60 frames), but for every tenth minute.
/// Nothing where the text is no timecode or the rate is unknown. Pure.
std::optional<project::Timecode> parsedTimecode(std::string_view text, project::Rate rate,
                                                bool dropFrame);

/// The timecode of a camera's own track or of a Broadcast Wave header; not the one inside a
/// picture's own stream, which editors pass over. Pure.
std::optional<project::Timecode> timecodeOf(const FileFields& file);

}  // namespace run
