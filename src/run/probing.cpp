#include "run/probing.h"

#include <algorithm>

#include "report/diagnostics.h"
#include "report/parallel.h"
#include "run/convert.h"
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

void takeOver(std::vector<Entry>& entries, const Services& services) {
  const int count = static_cast<int>(entries.size());
  const int files = static_cast<int>(std::ranges::count_if(entries, &Entry::isFile));
  int done = 0;
  for (Entry& entry : entries) {
    if (isMarker(entry.listed)) continue;
    if (!entry.source.starts_with(kIgnorePrefix)) entry.frameRate = entry.media.frameRate;
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

std::vector<MediaProperties> askAll(const std::vector<std::string>& entries,
                                    const Services& services) {
  std::vector<MediaProperties> media(entries.size());
  report::FirstException failed;
#pragma omp parallel for schedule(dynamic)
  for (std::size_t i = 0; i < entries.size(); ++i) {
    failed.keep([&] {
      if (!services.cancelled && !isPlaceholder(entries[i]) && isRegularOrMissing(entries[i]))
        media[i] = services.probe.query(entries[i]);
    });
  }
  failed.rethrow();
  return media;
}

void probeAll(std::vector<Entry>& entries, const Services& services,
              std::vector<std::string>& result, std::vector<report::LeftOut>& ignored) {
  takeOver(entries, services);
  markCutShort(entries);
  for (Entry& entry : entries) {
    if (services.cancelled) return;
    if (!entry.isFile() || !isIgnored(entry)) continue;  // the dummy has nothing to be ignored for
    ignored.push_back(diagnose(entry, services.probe));
    ignore(entry, services, result);
  }
}

}  // namespace run
