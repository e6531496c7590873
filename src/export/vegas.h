#pragma once

#include <cstdint>
#include <string>

#include "export/project.h"
#include "report/console.h"

namespace timeline {

/// The rows of one file in a Vegas edit list, each with its line end: a video row (ID `index` + 1)
/// and an audio row (ID `index` + 2), or the audio row alone for a path that ends in wav, WAV, mp3
/// or MP3. Times are cut down to whole milliseconds. Also sends the rows to `console`.
std::string vegasEventRows(const std::string& path, float lengthSeconds, std::uint32_t index,
                           float startSeconds, std::uint32_t videoTrack, std::uint32_t audioTrack,
                           report::Console& console);

/// The same, to standard output.
std::string vegasEventRows(const std::string& path, float lengthSeconds, std::uint32_t index,
                           float startSeconds, std::uint32_t videoTrack, std::uint32_t audioTrack);

/// The edit list of one group: the header and the rows of its clips by start. Tracks are numbered
/// from 1, a pair for each device (one for a device of sound alone).
std::string vegasEditList(const Project& project, const Group& group, report::Console& console);

}  // namespace timeline
