#pragma once

#include <optional>
#include <string>
#include <vector>

#include "run/settings.h"

namespace cli {

/// What the user asks for.
struct Arguments {
  std::vector<std::string> entries;               // files and folders
  std::vector<std::vector<std::string>> devices;  // files and folders of one device each
  std::vector<std::string> lists;                 // file lists to read
  double tolerance = run::kDefaultTolerance;
  int mode = run::kDefaultMode;
  double framesPerSecond = 0;  // 0: as the pictures are
  int width = 0, height = 0;   // pixels; 0: as the pictures are
  bool align = true;
  std::vector<std::string> formats;  // empty: all
  bool compactXmeml = false;
  std::string drift;  // off, sound or pieces; empty: as usual
  bool replaceAudio = false, cameraSound = false;
  std::string profile;  // empty: the user's own
  std::string json;     // empty: none; "-": standard output
  bool open = false, quiet = false, verbose = false;
};

/// Arguments to run with, or what to say and the exit status to end with.
struct Parsed {
  std::optional<Arguments> arguments;
  std::string text;    // help or version, for standard output; or an error, for standard error
  int exitStatus = 0;  // 2 for wrong usage
};

/// The end of a program that cannot begin: `problem` is a sentence without its full stop.
Parsed usageError(const std::string& problem);

/// Reads the words after the program's name. Pure.
Parsed parseArguments(const std::vector<std::string>& words);

}  // namespace cli
