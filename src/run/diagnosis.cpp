#include "run/diagnosis.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <optional>
#include <system_error>

#include "report/disk.h"
#include "report/files.h"
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

/// Tries it, because permissions alone do not tell (a card with its lock switched on).
bool mayBeWritten(const std::string& file) {
  const fs::path path = report::fromUtf8(file);
  const bool written = std::ofstream(path, std::ios::binary | std::ios::app).is_open();
  if (written) report::removeFile(path);
  return written;
}

constexpr const char* kNoIndex = "moov atom not found";  // said of any file named .mp4 or .mov

/// ffmpeg's own words, where they tell more than that it failed.
std::optional<Why> fromMessages(const std::string& messages) {
  struct Sign {
    const char* words;
    Why why;
  };
  static const Sign signs[] = {
      {"No space left", {"there is no room for its converted sound", "Make room on its drive."}},
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
  const std::string& error = entry.conversion.started.error;
  if (error.empty()) return std::nullopt;
  if (error.find("overwrite") != std::string::npos)
    return Why{error + ", which is itself in the list", "Rename one of the two."};
  return Why{"ffmpeg, which reads its sound, is missing or does not start (" + error + ")",
             kFfmpegRemedy};
}

Why fromConversion(const Entry& entry, MediaProbe& probe) {
  if (auto why = fromStart(entry)) return *why;
  if (!mayBeWritten(entry.converted))
    return {"its folder may not be written, so no converted sound can be made beside it",
            "Copy the file to a folder that may be written, and add the copy."};
  const std::string& messages = entry.conversion.messages;
  const bool named = messages.find(kNoIndex) == std::string::npos || beginsLikeMovie(entry.listed);
  if (auto why = fromMessages(messages); why && named) return *why;
  const MediaProperties media = probe.query(entry.listed);
  if (media.opened && media.facts.sounds.empty() && !media.frameRate.empty())
    return *fromMessages("does not contain any stream");
  if (media.opened && !media.facts.sounds.empty() && entry.conversion.exitCode == 0)
    return {"its sound is too short to be used", "Leave it out, or place it by hand."};
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
  std::string small = ending;
  std::ranges::transform(small, small.begin(), [](unsigned char c) { return std::tolower(c); });
  const std::string reason =
      "it has no picture, and " +
      (ending.empty() ? "a name without an ending" : "the ending " + ending) +
      " is not among those known for sound (wav, mp3, m4a, aif)";
  if (small == ".aiff") return {reason, "Rename it so that it ends in .aif."};
  for (const char* known : {".wav", ".mp3", ".m4a", ".aif"})
    if (small == known) return {reason, "Rename it so that it ends in " + small + "."};
  return {reason, "Convert its sound to WAV and add that."};
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
