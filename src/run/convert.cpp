#include "run/convert.h"

#include <omp.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <utility>

#include "report/diagnostics.h"
#include "report/disk.h"
#include "report/files.h"
#include "run/batches.h"
#include "run/conversion_command.h"
#include "run/entries.h"
#include "run/full_drive.h"
#include "run/playlist.h"
#include "run/progress_bar.h"
#include "run/two_steps.h"

namespace run {
namespace {

namespace fs = std::filesystem;

/// A build for macOS starts the command shown here.
void showMacCommand(const std::string& entry, report::Console& console) {
  const std::string questions(108, '?');
  console.line(questions);
  console.line(questions);
  console.line("");
  console.line(macConversionCommand(entry));
  console.line(questions);
  console.line(questions);
}

constexpr std::uintmax_t kSmallestSound = 1000;  // bytes of a converted file

Conversion refused(const std::string& entry, const std::string& why, const std::string& remedy) {
  return {{{entry + ": " + why}, 0, {}}, convertedName(entry), why, remedy};
}

/// Why an entry is not given to ffmpeg; a conversion without a refusal if it may be.
Conversion checked(const std::string& entry) {
  if (!isRegularOrMissing(entry)) return refused(entry, "it is not a file", "Add a media file.");
  if (SoundPlaces::isLeftover(entry))
    return refused(entry, "it is no recording: a run that was broken off left it",
                   "Delete it, or rename it if it is a recording after all.");
  if (isPlaylist(entry))
    return refused(entry, "it is a playlist or another text, not a recording",
                   "Add the recordings themselves.");
  return {};
}

/// The conversion of one list. The functions are callable from several threads at once, each for
/// entries of its own.
class Converter {
 public:
  Converter(const std::vector<std::string>& entries, SoundPlaces& places, const Services& services)
      : entries_(entries),
        places_(places),
        services_(services),
        results_(entries.size()),
        bar_(services.progress, static_cast<int>(entries.size())),
        files_(static_cast<int>(std::ranges::count_if(entries, std::not_fn(isPlaceholder)))) {}

  /// Converts what is in one batch and tells of every file.
  void convert(const std::vector<int>& batch) {
    if (services_.cancelled) return;
    for (const int i : batch) report::appendLogLine("working on -> " + entries_[i]);
    std::vector<int> together;
    for (const int i : batch) {
      if (!prepare(i)) continue;
      if (isBeside(i))
        together.push_back(i);
      else
        convertAlone(i);
    }
    if (together.size() > 1)
      convertTogether(together);
    else if (!together.empty())
      convertAlone(together.front());
    for (const int i : batch) tellOf(i);
  }

  const std::string& soundOf(int i) const { return results_[i].sound; }
  std::vector<Conversion> results() && { return std::move(results_); }

 private:
  bool isBeside(int i) const { return results_[i].sound == convertedName(entries_[i]); }

  /// Finds the place for its sound; false if it is not to be converted.
  bool prepare(int i) {
    if (isPlaceholder(entries_[i])) return false;  // there is nothing to convert
    results_[i] = checked(entries_[i]);
    if (!results_[i].refusal.empty()) return false;
    results_[i].sound = places_.beside(entries_[i]);
    if (results_[i].sound.empty()) results_[i].sound = places_.spare(static_cast<std::size_t>(i));
    if (!results_[i].sound.empty()) return true;
    results_[i] = refused(entries_[i], "neither its folder nor the temporary folder may be written",
                          "Copy the file to a folder that may be written, and add the copy.");
    return false;
  }

  void convertAlone(int i) {
    convertInto(i);
    if (services_.cancelled || !isBeside(i) || !hadNoRoom(results_[i].result)) return;
    const std::string spare = places_.spare(static_cast<std::size_t>(i));
    if (spare.empty()) return;
    report::removeFile(report::fromUtf8(results_[i].sound));
    results_[i].sound = spare;
    convertInto(i);
  }

  void convertInto(int i) {
    const Command command = conversionCommand(programFolder(), entries_[i], results_[i].sound);
    services_.console.line("ffmpeg windows komand:     " + command.windowsLine);
    results_[i].result = services_.processes.run(command, services_.cancelled);
    noteFullDrive(results_[i].sound, results_[i].result);
    showMacCommand(entries_[i], services_.console);
  }

  /// Of what a batch says nothing is told apart, so a file that fails in it is tried again alone.
  void convertTogether(const std::vector<int>& batch) {
    std::vector<std::string> sources;
    for (const int i : batch) sources.push_back(entries_[i]);
    const Command command = batchCommand(programFolder(), sources);
    services_.console.line("ffmpeg windows komand:     " + command.windowsLine);
    const ProcessResult result = services_.processes.run(command, services_.cancelled);
    for (const int i : batch) {
      if (services_.cancelled) return;
      const bool made = report::sizeOf(report::fromUtf8(results_[i].sound)) >= kSmallestSound;
      if (!result.ok() || !made) convertAlone(i);
    }
  }

  void tellOf(int i) {
    if (isMarker(entries_[i])) return;
    bar_.advance();
    if (isPlaceholder(entries_[i])) return;
    services_.progress.stage(Stage::convert, entries_[i], ++done_, files_);
  }

  const std::vector<std::string>& entries_;
  SoundPlaces& places_;
  const Services& services_;
  std::vector<Conversion> results_;
  ProgressBar bar_;
  const int files_;
  std::atomic<int> done_ = 0;
};

}  // namespace

bool isRegularOrMissing(const std::string& entry) {
  std::error_code error;
  const fs::file_type kind = report::kindOf(report::fromUtf8(entry), error);
  return error || kind == fs::file_type::not_found || kind == fs::file_type::regular;
}

std::vector<Conversion> convertAll(const std::vector<std::string>& entries, SoundPlaces& places,
                                   const Services& services, std::span<const MediaProperties> media,
                                   const std::function<void(const std::string&)>& converted) {
  const std::vector<MediaProperties> unknown(media.empty() ? entries.size() : 0);
  const std::vector<std::vector<int>> batches =
      batchesOf(media.empty() ? unknown : media, omp_get_max_threads());
  Converter converter(entries, places, services);
  const auto convert = [&](int batch) { converter.convert(batches[batch]); };
  const auto tell = [&](int batch) {
    for (const int i : batches[batch])
      if (converted && !services.cancelled) converted(converter.soundOf(i));
  };
  inTwoSteps(static_cast<int>(batches.size()), convert, tell);
  return std::move(converter).results();
}

std::vector<std::string> resemplirajgi8000(std::vector<std::string> videofiles,
                                           const Services& services) {
  TemporaryFolder spare;
  SoundPlaces places(videofiles, spare);
  (void)convertAll(videofiles, places, services);  // a file that did not work shows by its size
  places.leave();
  return convertedNames(videofiles);
}

}  // namespace run
