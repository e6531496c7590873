#include "run/diagnosis.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <optional>
#include <system_error>

#include "report/disk.h"
#include "report/files.h"
#include "report/text.h"
#include "run/outside_parts.h"

namespace run {
namespace {

namespace fs = std::filesystem;

struct Why {
  std::string reason, remedy;
};

std::optional<Why> fromFileSystem(const std::string& file) {
  const fs::path path = report::fromUtf8(file);
  std::error_code error;
  const fs::file_type kind = report::kindOf(path, error);
  if (kind == fs::file_type::not_found)
    return Why{"it does not exist", "Check its path, and that the card or drive is connected."};
  if (error)
    return Why{"it may not be read (" + error.message() + ")",
               "Check the permissions of the file and its folders."};
  if (kind == fs::file_type::directory) return Why{"it is a folder", "Add the files in it."};
  if (kind != fs::file_type::regular) return Why{"it is not a file", "Add a media file."};
  if (report::isHeldByAnother(path))
    return Why{"another program holds it open", "Close that program, then start again."};
  if (!std::ifstream(path, std::ios::binary))
    return Why{"it may not be read", "Check its permissions."};
  if (report::sizeOf(path) == 0)
    return Why{"it is empty (0 bytes)", "Copy it again from the camera or recorder."};
  return std::nullopt;
}

constexpr const char* kNoIndex = "moov atom not found";  // said of any file named .mp4 or .mov

/// ffmpeg's own words, where they tell more than that it failed.
std::optional<Why> fromMessages(const std::string& messages) {
  struct Sign {
    const char* words;
    Why why;
  };
  static const Sign signs[] = {
      {"does not contain any stream",
       {"it has no sound", "Record sound with the camera, or place this file by hand."}},
      {kNoIndex,
       {"it is cut off: its index is missing",
        "Copy it again from the camera, or repair it with the camera's own program."}},
      {"Invalid data found",
       {"it is not a media file, or it is damaged",
        "Check that it plays; copy or export it again."}},
      {"Decoder", {"ffmpeg cannot decode its sound", "Convert its sound to WAV and add that."}}};
  for (const auto& [words, why] : signs)
    if (messages.find(words) != std::string::npos) return why;
  return std::nullopt;
}

/// Whether it is a movie file as cameras write it, of which the end may be missing.
bool beginsLikeMovie(const std::string& file) {
  char first[8] = {};
  std::ifstream(report::fromUtf8(file), std::ios::binary).read(first, sizeof first);
  return std::string_view(first + 4, 4) == "ftyp";
}

std::optional<Why> fromStart(const Entry& entry) {
  if (!entry.refusal.empty()) return Why{entry.refusal, entry.remedy};
  const ProcessResult& result = entry.conversion;
  if (hadNoMemory(result))
    return Why{"there was not enough memory for ffmpeg, which reads its sound",
               "Close other programs, then start again; if that does not help, copy it again from "
               "the camera."};
  const std::string error =
      result.started.ok() ? report::printable(brokenPartOf(result)) : result.started.error;
  if (error.empty()) return std::nullopt;
  return Why{"ffmpeg, which reads its sound, is missing or does not start (" + error + ")",
             kFfmpegRemedy};
}

/// What happened to ffmpeg rather than to the file.
std::optional<Why> fromOutside(const ProcessResult& result) {
  if (hadNoRoom(result))
    return Why{"there is no room for its converted sound",
               "Make room on its drive or on that of the temporary folder."};
  if (result.stalled)
    return Why{
        "reading it came to a halt for minutes",
        "Check its drive or network share; copy the file to another drive and add the copy."};
  if (hasCrashed(result))
    return Why{"ffmpeg crashed at its sound",
               "Check that it plays; convert its sound to WAV with another program and add that."};
  if (result.signal != 0)
    return Why{"ffmpeg was ended by the system or another program before it was done",
               "Start again; close other programs if memory is short."};
  return std::nullopt;
}

std::string lastLineOf(const std::string& messages) {
  const std::size_t end = messages.find_last_not_of("\r\n");
  if (end == std::string::npos) return {};
  const std::size_t begin = messages.find_last_of("\r\n", end);
  return report::printable(
      messages.substr(begin == std::string::npos ? 0 : begin + 1, end - begin));
}

Why fromFailure(const ProcessResult& result) {
  const std::string last = lastLineOf(result.messages);
  return {"ffmpeg failed at its sound" + (last.empty() ? "" : " (" + last + ")"),
          "Check that it plays; copy or export it again."};
}

Why fromConversion(const Entry& entry, MediaProbe& probe) {
  if (auto why = fromStart(entry)) return *why;
  if (auto why = fromOutside(entry.conversion)) return *why;
  if (entry.cutShort)
    return {"most of its sound is missing: the file is cut off or damaged",
            "Copy it again from the camera or recorder."};
  const std::string& messages = entry.conversion.messages;
  const bool named = messages.find(kNoIndex) == std::string::npos || beginsLikeMovie(entry.listed);
  if (auto why = fromMessages(messages); why && named) return *why;
  const MediaProperties media = probe.query(entry.listed);
  const bool sound = !media.facts.sounds.empty();
  if (media.opened && !sound && !media.frameRate.empty())
    return *fromMessages("does not contain any stream");
  if (media.opened && sound && entry.conversion.exitCode == 0)
    return {"its sound is too short to be used", "Leave it out, or place it by hand."};
  if (media.opened && sound) return fromFailure(entry.conversion);
  return *fromMessages("Invalid data found");
}

std::string endingOf(const std::string& file) {
  return report::toUtf8(report::fromUtf8(file).extension());
}

Why fromType(const Entry& entry, MediaProbe& probe) {
  if (!probe.available())
    return {"the MediaInfo library is missing, so its picture could not be recognised",
            kMediaInfoRemedy};
  const std::string ending = endingOf(entry.listed);
  return {
      "it has no picture, and " +
          (ending.empty() ? "a name without an ending" : "the ending " + ending) +
          " is not among those known for sound (wav, mp3, m4a, aif, aiff, flac, ogg, opus, aac)",
      "Convert its sound to WAV and add that."};
}

}  // namespace

report::LeftOut diagnose(const Entry& entry, MediaProbe& probe) {
  const bool converted = !entry.source.starts_with(kIgnorePrefix);
  Why why;
  if (auto found = fromFileSystem(entry.listed))
    why = *found;
  else
    why = converted ? fromType(entry, probe) : fromConversion(entry, probe);
  return {entry.listed, why.reason, why.remedy};
}

}  // namespace run
