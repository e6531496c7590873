#include "run/convert.h"

#include <omp.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <set>
#include <utility>

#include "report/diagnostics.h"
#include "report/disk.h"
#include "report/files.h"
#include "run/batches.h"
#include "run/conversion_command.h"
#include "run/entries.h"
#include "run/progress_bar.h"
#include "run/two_steps.h"

namespace run {
namespace {

namespace fs = std::filesystem;

/// The place of a file whatever way its name takes to it.
fs::path placeOf(const std::string& name) {
  std::error_code error;
  const fs::path place = fs::weakly_canonical(report::fromUtf8(name), error);
  return error ? report::fromUtf8(name) : place;
}

std::set<fs::path> placesOf(const std::vector<std::string>& entries) {
  std::set<fs::path> places;
  for (const std::string& entry : entries)
    if (!isPlaceholder(entry)) places.insert(placeOf(entry));
  return places;
}

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

/// The conversion of one list. The functions are callable from several threads at once, each for
/// entries of its own.
class Conversion {
 public:
  Conversion(const std::vector<std::string>& entries, const Services& services)
      : entries_(entries),
        services_(services),
        sources_(placesOf(entries)),
        results_(entries.size()),
        bar_(services.progress, static_cast<int>(entries.size())),
        files_(static_cast<int>(std::ranges::count_if(entries, std::not_fn(isPlaceholder)))) {}

  /// Converts what is in one batch and tells of every file.
  void convert(const std::vector<int>& batch) {
    if (services_.cancelled) return;
    for (const int i : batch) report::appendLogLine("working on -> " + entries_[i]);
    const std::vector<int> ready = prepared(batch);
    if (ready.size() > 1)
      convertTogether(ready);
    else if (!ready.empty())
      convertAlone(ready.front());
    for (const int i : batch) tellOf(i);
  }

  std::vector<ProcessResult> results() && { return std::move(results_); }

 private:
  /// Those of `batch` that may be converted; says why of the others.
  std::vector<int> prepared(const std::vector<int>& batch) {
    std::vector<int> ready;
    for (const int i : batch) {
      const std::string target = convertedName(entries_[i]);
      if (isPlaceholder(entries_[i])) continue;  // there is nothing to convert
      if (sources_.contains(placeOf(target))) {
        results_[i] = {{"its converted sound would overwrite " + target}, 0, {}};
      } else if (!isRegularOrMissing(entries_[i])) {
        results_[i] = {{entries_[i] + " is not a file"}, 0, {}};
      } else {
        report::removeFile(report::fromUtf8(target));  // what a broken-off run left is not ours
        ready.push_back(i);
      }
    }
    return ready;
  }

  void convertAlone(int i) {
    const Command command = conversionCommand(programFolder(), entries_[i]);
    services_.console.line("ffmpeg windows komand:     " + command.windowsLine);
    results_[i] = services_.processes.run(command, services_.cancelled);
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
      const bool made =
          report::sizeOf(report::fromUtf8(convertedName(entries_[i]))) >= kSmallestSound;
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
  const Services& services_;
  const std::set<fs::path> sources_;
  std::vector<ProcessResult> results_;
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

std::vector<ProcessResult> convertAll(const std::vector<std::string>& entries,
                                      const Services& services,
                                      std::span<const MediaProperties> media,
                                      const std::function<void(int)>& converted) {
  const std::vector<MediaProperties> unknown(media.empty() ? entries.size() : 0);
  const std::vector<std::vector<int>> batches =
      batchesOf(media.empty() ? unknown : media, omp_get_max_threads());
  Conversion conversion(entries, services);
  const auto convert = [&](int batch) { conversion.convert(batches[batch]); };
  const auto tell = [&](int batch) {
    for (const int i : batches[batch])
      if (converted && !services.cancelled) converted(i);
  };
  inTwoSteps(static_cast<int>(batches.size()), convert, tell);
  return std::move(conversion).results();
}

std::vector<std::string> ownConvertedNames(const std::vector<std::string>& entries) {
  const std::set<fs::path> sources = placesOf(entries);
  std::vector<std::string> own;
  for (const std::string& entry : entries) {
    const std::string name = convertedName(entry);
    if (!isMarker(entry) && !sources.contains(placeOf(name))) own.push_back(name);
  }
  return own;
}

std::vector<std::string> resemplirajgi8000(std::vector<std::string> videofiles,
                                           const Services& services) {
  (void)convertAll(videofiles, services);  // a file that did not work shows by its size
  return convertedNames(videofiles);
}

}  // namespace run
