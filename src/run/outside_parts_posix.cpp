#include "run/outside_parts.h"

namespace run {

const char* const kMediaInfoFile = "libmediainfo.so.0";
const char* const kMediaInfoRemedy = "Install the MediaInfo library (package libmediainfo0v5).";
const char* const kFfmpegRemedy =
    "Install ffmpeg, or put it into the folder in which this program runs.";

}  // namespace run
