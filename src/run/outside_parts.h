#pragma once

namespace run {

// What a run needs and may find missing: its name on this system, and what a user does about it.
extern const char* const kMediaInfoFile;
extern const char* const kMediaInfoRemedy;
extern const char* const kFfmpegRemedy;

// Where programs keep what can be made again, below the user's own folder.
extern const char* const kCacheFolder;

}  // namespace run
