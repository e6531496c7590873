#include "run/conversion_command.h"

#include <filesystem>
#include <initializer_list>

#include "report/files.h"
#include "run/entries.h"

namespace run {
namespace {

/// ffmpeg takes "12:30 take.mov" for a protocol and "-take.mov" for an option; a path with a
/// folder in front it takes for a file.
std::string fileArgument(std::string_view entry) {
  return std::string(entry.starts_with('/') ? "" : "./").append(entry);
}

}  // namespace

std::string programFolder() {
  std::error_code error;
  const std::filesystem::path here = std::filesystem::current_path(error);
  return (error ? std::string() : report::nativeUtf8(here)) + "/";
}

Command conversionCommand(std::string_view programFolder, std::string_view entry,
                          const std::string& target) {
  const std::string source(entry);
  std::string line = "\"";
  line.append(programFolder).append("ffmpeg.exe\"   -i \"").append(source);
  line.append("\" -vn -acodec pcm_s16le -ar 8000 -ac 1  -f wav -y  \"").append(target) += '"';
  return {line,
          {"ffmpeg", "-i", fileArgument(source), "-vn", "-acodec", "pcm_s16le", "-ar", "8000",
           "-ac", "1", "-f", "wav", "-y", fileArgument(target)}};
}

Command batchCommand(std::string_view programFolder, std::span<const std::string> entries) {
  Command command{"\"", {"ffmpeg"}};
  command.windowsLine.append(programFolder).append("ffmpeg.exe\"");
  const auto add = [&](std::initializer_list<std::string> words) {
    command.arguments.insert(command.arguments.end(), words);
  };
  for (const std::string& entry : entries) {
    command.windowsLine.append(" -i \"").append(entry) += '"';
    add({"-i", fileArgument(entry)});
  }
  for (std::size_t i = 0; i < entries.size(); ++i) {
    const std::string input = std::to_string(i), target = convertedName(entries[i]);
    command.windowsLine.append(" -map ").append(input).append(":a -map_metadata ").append(input);
    command.windowsLine.append(" -vn -acodec pcm_s16le -ar 8000 -ac 1 -f wav -y \"");
    command.windowsLine.append(target) += '"';
    add({"-map", input + ":a", "-map_metadata", input, "-vn", "-acodec", "pcm_s16le", "-ar", "8000",
         "-ac", "1", "-f", "wav", "-y", fileArgument(target)});
  }
  return command;
}

Command trackCommand(std::string_view programFolder, std::string_view entry,
                     const TrackChoice& choice, const std::string& target) {
  const std::string source(entry), track = "0:a:" + std::to_string(choice.track);
  const std::string channels = choice.firstChannel ? "pan=mono|c0=c0" : "anull";
  std::string line = "\"";
  line.append(programFolder).append("ffmpeg.exe\" -i \"").append(source);
  line.append("\" -vn -map ").append(track).append(" -af \"").append(channels);
  line.append("\" -acodec pcm_s16le -ar 8000 -ac 1 -f wav -y \"").append(target) += '"';
  return {line,
          {"ffmpeg", "-i", fileArgument(source), "-vn", "-map", track, "-af", channels, "-acodec",
           "pcm_s16le", "-ar", "8000", "-ac", "1", "-f", "wav", "-y", fileArgument(target)}};
}

std::string macConversionCommand(std::string_view entry) {
  return "./Kestrel.app/ffmpeg   -i \"" + std::string(entry) +
         "\" -vn  -ar 8000 -ac 1 -f wav -y \"" + convertedName(entry) + "\"";
}

}  // namespace run
