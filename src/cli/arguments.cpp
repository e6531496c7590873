#include "cli/arguments.h"

#include <algorithm>
#include <array>

#include "cli/option_reader.h"
#include "cli/option_values.h"

namespace cli {
namespace {

constexpr std::array kCommands{
    CommandText{Command::sync, "sync", "Synchronise recordings; without a command it is this one"},
    CommandText{Command::exportDocuments, "export", "Write the documents of a project again"},
    CommandText{Command::show, "show", "Show what stands where in a project"}};

/// The command, and the words without its name.
std::pair<Command, std::vector<std::string>> splitCommand(const std::vector<std::string>& words) {
  for (const CommandText& known : kCommands)
    if (!words.empty() && words.front() == known.name)
      return {known.command, {words.begin() + 1, words.end()}};
  return {Command::sync, words};
}

/// What no option parser can tell is wrong.
std::string problemOf(const Arguments& given) {
  if (given.command != Command::sync) {
    if (given.entries.size() != 1) return "Name one project, a file that ends in .kestrel";
    return {};
  }
  for (const std::vector<std::string>& device : given.devices)
    if (device.front().starts_with("--"))
      return "--device needs files; name them after it, before the next option";
  const bool others = !given.entries.empty() || !given.lists.empty() || !given.devicesIn.empty();
  if (!others && given.devices.empty())
    return "No recording is named; give media files or a folder that holds them";
  if (!others && given.devices.size() == 1 && given.devices.front().size() > 1)
    return "All recordings are given as one device, and recordings of one device are not compared "
           "with each other; put -- before the others";
  return {};
}

}  // namespace

std::span<const CommandText> commands() { return kCommands; }

std::vector<OptionText> optionsOf(Command command) { return OptionReader(command).options(); }

project::Settings settingsOf(const Arguments& arguments, project::Settings settings) {
  settings.tolerance = arguments.tolerance.value_or(settings.tolerance);
  settings.mode = arguments.mode.value_or(settings.mode);
  settings.bySound = settings.bySound && !arguments.votesOnly;
  if (arguments.framesPerSecond) settings.framesPerSecond = arguments.framesPerSecond;
  if (settings.framesPerSecond == kAutomatic) settings.framesPerSecond.reset();
  if (arguments.frameSize) settings.frameSize = arguments.frameSize;
  if (settings.frameSize == project::FrameSize{}) settings.frameSize.reset();
  settings.formats = arguments.formats.value_or(settings.formats);
  settings.compactXmeml = arguments.compactXmeml.value_or(settings.compactXmeml);
  settings.clipsByClock = arguments.byClock.value_or(settings.clipsByClock);
  if (!arguments.drift.empty()) settings.drift = arguments.drift;
  settings.replaceAudio = settings.replaceAudio || arguments.replaceAudio;
  settings.cameraSound = settings.cameraSound || arguments.cameraSound;
  return settings;
}

Parsed usageError(const std::string& problem) {
  const std::string end = problem.ends_with('?') ? "" : ".";
  return {
      {}, "kestrel-align: " + problem + end + "\nSee kestrel-align --help for all options.\n", 2};
}

Parsed parseArguments(const std::vector<std::string>& words) {
  const auto [command, rest] = splitCommand(words);
  Parsed parsed = OptionReader(command).read(rest);
  if (!parsed.arguments) return parsed;
  const std::string problem = problemOf(*parsed.arguments);
  return problem.empty() ? parsed : usageError(problem);
}

}  // namespace cli
