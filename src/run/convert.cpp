#include "run/convert.h"

#include <algorithm>
#include <filesystem>
#include <set>

#include "report/diagnostics.h"
#include "report/disk.h"
#include "report/files.h"
#include "run/conversion_command.h"
#include "run/entries.h"
#include "run/progress_bar.h"

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

/// A pipe or device would keep ffmpeg waiting for ever.
bool endless(const std::string& entry) {
  std::error_code error;
  const fs::file_type kind = report::kindOf(report::fromUtf8(entry), error);
  return !error && kind != fs::file_type::not_found && kind != fs::file_type::regular;
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

ProcessResult convertOne(const std::string& entry, const std::set<fs::path>& sources,
                         const Services& services) {
  const std::string target = convertedName(entry);
  if (sources.contains(placeOf(target)))
    return {{"its converted sound would overwrite " + target}, 0, {}};
  if (endless(entry)) return {{entry + " is not a file"}, 0, {}};
  report::removeFile(report::fromUtf8(target));  // what a broken-off run left is not this run's
  const Command command = conversionCommand(programFolder(), entry);
  services.console.line("ffmpeg windows komand:     " + command.windowsLine);
  ProcessResult result = services.processes.run(command, services.cancelled);
  showMacCommand(entry, services.console);
  return result;
}

}  // namespace

std::vector<ProcessResult> convertAll(const std::vector<std::string>& entries,
                                      const Services& services) {
  const int count = static_cast<int>(entries.size());
  const std::set<fs::path> sources = placesOf(entries);
  std::vector<ProcessResult> results(entries.size());
  ProgressBar bar(services.progress, count);
  const int files = static_cast<int>(std::ranges::count_if(
      entries, [](const std::string& entry) { return !isPlaceholder(entry); }));
  std::atomic<int> done = 0;
#pragma omp parallel for schedule(static, 1)
  for (int i = 0; i < count; ++i) {
    if (services.cancelled) continue;
    report::appendLogLine("working on -> " + entries[i]);
    if (isMarker(entries[i])) continue;
    results[i] = convertOne(entries[i], sources, services);
    bar.advance();
    if (!isPlaceholder(entries[i]))
      services.progress.stage(Stage::convert, entries[i], ++done, files);
  }
  return results;
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
