#include "run/outside_parts.h"

namespace run {

const char* const kMediaInfoFile = "MediaInfo.dll";
const char* const kMediaInfoRemedy =
    "Put MediaInfo.dll back beside this program, or install the program anew.";
const char* const kFfmpegRemedy =
    "Put ffmpeg.exe back beside this program, or install the program anew.";

const char* const kCacheFolder = "/AppData/Local";

}  // namespace run
