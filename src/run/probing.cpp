#include "run/probing.h"

#include <algorithm>
#include <atomic>

#include "report/diagnostics.h"
#include "run/diagnosis.h"
#include "run/entries.h"
#include "run/file_list.h"
#include "run/progress_bar.h"

namespace run {
namespace {

/// The bar stands still during this stage: nothing is ever added to the step of one file.
void showStep(Progress& progress, int count) {
  const float accumulated = 0.0f;
  const int pixels = static_cast<int>(barStep(count) + accumulated);
  if (pixels < kBarEnd) progress.moveprogressslot(pixels);
}

/// Asks every file for its properties, several at once: the library reads far into sound files.
void askAll(std::vector<Entry>& entries, const Services& services) {
  const int count = static_cast<int>(entries.size());
  const int files = static_cast<int>(std::ranges::count_if(entries, &Entry::isFile));
  std::atomic<int> done = 0;
#pragma omp parallel for schedule(dynamic)
  for (int i = 0; i < count; ++i) {
    Entry& entry = entries[i];
    if (services.cancelled || isMarker(entry.listed)) continue;
    entry.media = services.probe.query(entry.source);
    entry.frameRate = entry.media.frameRate;
    showStep(services.progress, count);
    if (entry.isFile()) services.progress.stage(Stage::probe, entry.listed, ++done, files);
  }
}

void ignore(Entry& entry, const Services& services, std::vector<std::string>& result) {
  const std::string line =
      "we are ognoring this file,please check for corruption or reencode/reconvert in different "
      "format! ->" +
      entry.source;
  result.push_back(entry.source);
  services.console.line(line);
  report::appendLogLine(line);
  entry.source = kToDrop;
  entry.converted = kToDrop;
}

}  // namespace

void probeAll(std::vector<Entry>& entries, const Services& services,
              std::vector<std::string>& result, std::vector<report::LeftOut>& ignored) {
  askAll(entries, services);
  for (Entry& entry : entries) {
    if (services.cancelled) return;
    if (!entry.isFile() || !isIgnored(entry)) continue;  // the dummy has nothing to be ignored for
    ignored.push_back(diagnose(entry, services.probe));
    ignore(entry, services, result);
  }
}

}  // namespace run
