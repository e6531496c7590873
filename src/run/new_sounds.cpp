#include "run/new_sounds.h"

#include <filesystem>

#include "report/disk.h"
#include "report/files.h"
#include "report/profile.h"
#include "run/conversion_command.h"
#include "run/full_drive.h"

namespace run {

namespace fs = std::filesystem;

constexpr char kUnfinished[] = ".part";

NewSounds::NewSounds(const std::string& folder, const Services& services, Outcome& outcome)
    : folder_(folder + "/sound"), services_(services), outcome_(outcome) {}

std::string NewSounds::freePath(const std::string& name) {
  std::string path = folder_ + "/" + name + ".wav";
  for (int number = 2; !taken_.insert(path).second; ++number)
    path = folder_ + "/" + name + " (" + std::to_string(number) + ").wav";
  return path;
}

std::optional<std::string> NewSounds::write(NewSound sound, const std::string& name) {
  const std::string path = freePath(name);
  sound.target = path + kUnfinished;
  return make(newSoundCommand(programFolder(), sound), path, sound.source);
}

std::optional<std::string> NewSounds::write(JoinedSound sound, const std::string& name,
                                            const std::string& source) {
  const std::string path = freePath(name);
  sound.target = path + kUnfinished;
  return make(joinedSoundCommand(programFolder(), sound), path, source);
}

std::optional<std::string> NewSounds::make(const Command& command, const std::string& path,
                                           const std::string& source) {
  const fs::path unfinished = report::fromUtf8(path + kUnfinished);
  const auto fail = [&](const std::string& why) -> std::optional<std::string> {
    report::removeFile(unfinished);
    addFailure(
        "The new sound of " + report::nativeSlashes(source) + " was not written: " + why + ".",
        outcome_);
    return {};
  };
  if (const std::error_code error = report::makeFolders(report::fromUtf8(folder_)))
    return fail("the folder " + folder_ + " cannot be created (" + error.message() + ")");
  services_.console.line("ffmpeg windows komand:     " + command.windowsLine);
  ProcessResult result = services_.processes.run(command, services_.cancelled);
  noteFullDrive(path, result);
  if (services_.cancelled) {
    report::removeFile(unfinished);
    return {};
  }
  if (hadNoRoom(result)) return fail("there is no room on its drive");
  if (!result.ok()) return fail(result.started.ok() ? "ffmpeg stopped" : result.started.error);
  std::error_code error;
  fs::rename(unfinished, report::fromUtf8(path), error);
  if (error) return fail(error.message());
  outcome_.outputs.push_back(report::wholePath(path));
  return report::wholePath(path);
}

std::string stemOf(const std::string& path) {
  return report::toUtf8(report::fromUtf8(path).stem());
}

}  // namespace run
