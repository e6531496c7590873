#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "export/element.h"
#include "export/fcpxml.h"
#include "export/frame_rate.h"

namespace timeline {

/// `units` of `rate` as the exact seconds that the format writes: "0s", "5s", "44044/30000s".
std::string timeText(std::int64_t units, FrameRate rate);

/// `units` of `rate` after the file's start, by the file's own clock.
std::string mediaTime(const Media& media, std::int64_t units, FrameRate rate);

/// How the file's timecode is shown: "DF" or "NDF".
std::string_view timecodeFormat(const Media& media);

inline constexpr const char* kDefaultFormat = "DEFAULTFORMAT";

/// Final Cut Pro's own name for a picture size at a rate, such as "FFVideoFormat1080p25"; empty if
/// it has none.
std::string formatName(int width, int height, FrameRate rate);

/// The format element of the run's sequences, with the id kDefaultFormat.
Element sequenceFormat(const Project& project, FcpxmlVersion version);

std::string assetId(int media);

/// The assets of the files in `used`, before each the format that it needs and that no asset
/// before it had (1.10 alone: in 1.1 an asset has no format).
std::vector<Element> assets(const Project& project, const std::vector<int>& used,
                            FcpxmlVersion version);

/// The format id of a file's picture.
std::string pictureFormatId(const Project& project, const Media& media);

}  // namespace timeline
