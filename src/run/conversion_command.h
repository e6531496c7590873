#pragma once

#include <span>
#include <string>
#include <string_view>

#include "run/process.h"

namespace run {

/// The folder in which ffmpeg is looked for on Windows: the working directory followed by "/".
std::string programFolder();

/// Converts `entry` to 8000 Hz, one channel, 16 bits, in the WAV file `target`; an older one is
/// overwritten. On Windows a double quote in a name breaks the command line, elsewhere any name
/// works. Pure.
Command conversionCommand(std::string_view programFolder, std::string_view entry,
                          const std::string& target);

/// Converts several entries in one process, which spares starting a program for each: for every one
/// the same options, its own input and its own properties. Fails as a whole if one of the entries
/// cannot be opened or has another number of sound tracks than one. Pure.
Command batchCommand(std::string_view programFolder, std::span<const std::string> entries);

/// One of a file's sound tracks, counted from 0: all of its channels, or the first of them alone.
struct TrackChoice {
  int track;
  bool firstChannel;
};

/// The same for one track, into the file `target`. Pure.
Command trackCommand(std::string_view programFolder, std::string_view entry,
                     const TrackChoice& choice, const std::string& target);

/// The same for a macOS build, as text: it is shown, not run.
std::string macConversionCommand(std::string_view entry);

}  // namespace run
