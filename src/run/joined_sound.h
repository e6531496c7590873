#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "run/process.h"

namespace run {

/// A part of a sound that is joined from several files. What no file sounds is silence.
struct SoundPart {
  std::string source;              // empty: silence
  int stream = 0;                  // of the sound streams, from 0
  int rate = 48000, channels = 2;  // of the source
  std::int64_t skip = 0;           // samples of the source before the part
  double playRate = 1;             // seconds of the source in one second of the target
  std::int64_t length = 0;         // samples of the target
};

struct JoinedSound {
  std::string target;  // a WAV file
  int rate = 48000, channels = 2, bits = 24;
  std::vector<SoundPart> parts;
};

/// ffmpeg with its best resampler: the parts one after another, each exactly as long as asked. A
/// channel that a source does not have repeats its last one. Pure.
Command joinedSoundCommand(const std::string& programFolder, const JoinedSound& sound);

}  // namespace run
