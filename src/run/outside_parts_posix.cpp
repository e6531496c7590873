#include "run/outside_parts.h"

namespace run {

const char* const kMediaInfoFile = "libmediainfo.so.0";
const char* const kMediaInfoRemedy = "Install the MediaInfo library (package libmediainfo0v5).";
const char* const kFfmpegRemedy = "Install ffmpeg (package ffmpeg), or put it beside this program.";

const char* const kCacheFolder = "/.cache";

}  // namespace run
