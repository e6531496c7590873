#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "run/process.h"

namespace run {

/// Sound that is written anew: the moments of one file on another clock, or a part of it.
struct NewSound {
  std::string source, target;  // paths; the target is a WAV file
  int stream = 0;              // of the sound streams, from 0
  int rate = 48000, bits = 24;
  double playRate = 1;        // seconds of the source in one second of the target
  std::int64_t skip = 0;      // samples of the source that are left out at its head
  std::int64_t delay = 0;     // samples of silence before it
  std::int64_t length = 0;    // samples of the whole target; silence fills what is missing
  bool keepTimecode = false;  // the time of day in the header stays
};

/// A ratio of whole numbers below a million, as near to `value` as there is one: resamplers take
/// no other, and it is right to a hundredth of a millionth.
struct Ratio {
  std::int64_t over, under;
};
Ratio nearestRatio(double value);

/// Filters, with a comma at their end, that make a sound `longer` times as many samples, which then
/// count as `rate` in a second: ffmpeg's best resampler. Empty if there is nothing to do.
std::string stretchFilters(double longer, int rate);

/// The WAV codec for samples of that many bits; 24 where there are none to be kept.
std::string soundCodec(int bits);

/// A word of a command line; paths are told from options, whatever they begin with.
struct ProgramWord {
  std::string text;
  bool isPath = false;
};
Command ffmpegCommand(const std::string& programFolder, const std::vector<ProgramWord>& words);

/// ffmpeg with its best resampler: same rate, bits and channels, exactly as long as asked. Pure.
Command newSoundCommand(const std::string& programFolder, const NewSound& sound);

}  // namespace run
