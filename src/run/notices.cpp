#include "run/notices.h"

#include <algorithm>

#include "analysis/sound.h"
#include "report/profile.h"
#include "report/text.h"
#include "run/outside_parts.h"
#include "run/results_folder.h"

namespace run {

MissingPrograms missingPrograms(const std::vector<Entry>& entries, MediaProbe& probe) {
  MissingPrograms missing{{}, !probe.available()};
  for (const Entry& entry : entries) {
    const std::string& error = entry.conversion.started.error;
    if (missing.ffmpeg.empty() && error.starts_with("cannot start")) missing.ffmpeg = error;
  }
  return missing;
}

std::vector<std::string> noticesOf(const MissingPrograms& missing,
                                   const std::vector<Entry>& usable) {
  std::vector<std::string> notices;
  if (!missing.ffmpeg.empty())
    notices.push_back("ffmpeg, which reads the sound of the files, does not start (" +
                      missing.ffmpeg + "). " + kFfmpegRemedy);
  if (missing.mediaInfo)
    notices.push_back(
        std::string("The MediaInfo library was not found, so pictures could not be recognised: "
                    "only sound files are used. ") +
        kMediaInfoRemedy);
  const auto files = std::ranges::count_if(usable, &Entry::isFile);
  if (files == 0) notices.push_back("There is no usable file to synchronise.");
  if (files == 1)
    notices.push_back("One recording alone cannot be synchronised: add those of other devices.");
  return notices;
}

std::string noticeOfMovedDesktop(const std::string& desktop, bool linked) {
  if (desktop.empty()) return {};
  return "Your desktop is the folder " + desktop + ", but the results go to " +
         report::nativeSlashes(resultsFolder()) +
         (linked ? ". The shortcut SYNCED on your desktop leads there." : ": look for them there.");
}

std::vector<std::string> noticesOfSounds(const Material& material) {
  std::vector<std::string> notices;
  for (std::size_t i = 0; i < material.entries.size(); ++i) {
    const Entry& entry = material.entries[i];
    const double read = double(material.samples[i]) / analysis::kSampleRate;
    const double said = entry.media.firstSound().lengthSeconds;
    if (!entry.isFile() || read + 1 > said * 0.98) continue;  // rounding and padding are less
    notices.push_back("Of the sound of " + entry.listed + " only " + report::clockText(read) +
                      " of " + report::clockText(said) +
                      " could be read: it may be cut off or damaged. Copy it again.");
  }
  return notices;
}

}  // namespace run
