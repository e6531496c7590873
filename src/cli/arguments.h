#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "project/project.h"

namespace cli {

enum class Command { sync, exportDocuments, show };

/// What the user asks for. What is not given is empty: it is as the project says, or as usual.
struct Arguments {
  Command command = Command::sync;
  std::vector<std::string> entries;               // files, folders and projects
  std::vector<std::vector<std::string>> devices;  // files and folders of one device each
  std::vector<std::string> devicesIn;             // folders that hold a folder for each device
  std::vector<std::string> lists;                 // file lists to read
  std::vector<std::string> only;                  // names of recordings to place again
  std::optional<double> tolerance;
  std::optional<int> mode;
  bool votesOnly = false;
  std::optional<double> framesPerSecond;        // 0: as the pictures are
  std::optional<project::FrameSize> frameSize;  // 0 x 0: as the pictures are
  std::optional<std::vector<std::string>> formats;
  std::optional<bool> compactXmeml;
  std::optional<bool> byClock;
  std::string drift;  // off, sound or pieces; empty: as usual
  bool replaceAudio = false, cameraSound = false;
  bool cache = true;    // use again what was heard before, and keep it
  std::string profile;  // empty: the user's own
  std::string output;   // the project to write; empty: only the one beside the documents
  std::string folder;   // of exported documents; empty: beside the project
  std::string json;     // empty: none; "-": standard output
  bool open = false, quiet = false, verbose = false;
};

/// `settings` with what the arguments say instead.
project::Settings settingsOf(const Arguments& arguments, project::Settings settings);

/// Arguments to run with, or what to say and the exit status to end with.
struct Parsed {
  std::optional<Arguments> arguments;
  std::string text;    // help or version, for standard output; or an error, for standard error
  int exitStatus = 0;  // 2 for wrong usage
};

/// The end of a program that cannot begin: `problem` is a sentence without its full stop.
Parsed usageError(const std::string& problem);

/// Reads the words after the program's name. The first may be the name of a command; without one
/// it is `sync`. Pure.
Parsed parseArguments(const std::vector<std::string>& words);

/// The commands by their names, with what each does, for help and manual.
struct CommandText {
  Command command;
  std::string_view name, purpose;
};
std::span<const CommandText> commands();

/// One line of a command's help.
struct OptionText {
  std::string names;  // "-o, --output"
  std::string value;  // "FILE"; empty: it takes none
  std::string description;
};
std::vector<OptionText> optionsOf(Command command);

}  // namespace cli
