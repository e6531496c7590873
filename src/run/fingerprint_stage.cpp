#include "run/fingerprint_stage.h"

#include <algorithm>
#include <atomic>

#include "report/diagnostics.h"
#include "run/progress_bar.h"
#include "run/sound_level.h"

namespace run {

namespace {

void log(std::string_view line) { report::appendLogLine(std::string(line)); }

}  // namespace

void EarlyListener::listen(const std::string& sound) {
  if (services_.cancelled || isQuieterThan(sound, kNearlySilent)) return;
  const analysis::FingerprintListener listener{
      services_.console, log, {}, {}, [&] { return services_.cancelled.load(); }};
  analysis::Heard heard = analysis::fingerprintFile(sound, decay_, listener);
  if (!services_.cancelled) put(sound, std::move(heard));
}

void EarlyListener::put(const std::string& sound, analysis::Heard heard) {
  const std::lock_guard lock(mutex_);
  heard_.insert_or_assign(sound, std::move(heard));
}

std::optional<analysis::Heard> EarlyListener::take(const std::string& sound) {
  const std::lock_guard lock(mutex_);
  auto found = heard_.extract(sound);
  if (found.empty()) return std::nullopt;
  return std::move(found.mapped());
}

void fingerprintAll(Material& material, double tolerance, const Services& services,
                    EarlyListener& early) {
  const std::vector<Entry>& entries = material.entries;
  const int nall = static_cast<int>(entries.size());
  const int files = static_cast<int>(std::ranges::count_if(entries, &Entry::isFile));
  services.console.line("pred alokacija na all[i] 200000");  // before the allocation
  material.fingerprints.resize(nall);
  material.durations = Eigen::VectorXf::Zero(nall);
  std::vector<std::string> names;
  for (const Entry& entry : entries) names.push_back(entry.converted);
  std::atomic<int> done = 0;
  const analysis::FingerprintListener listener{
      services.console,
      log,
      [&](int pixels) { services.progress.moveprogressslot(pixels); },
      [&](int file) {
        if (entries[file].isFile())
          services.progress.stage(Stage::fingerprint, entries[file].listed, ++done, files);
      },
      [&] { return services.cancelled.load(); },
      [&](int file) { return early.take(names[file]); }};
  std::atomic<std::uint32_t> pixels = 0;
  analysis::hearAll(names, static_cast<float>(tolerance), pixels, barStep(nall), listener,
                    [&](int file, analysis::Heard heard) {
                      material.fingerprints[file] = std::move(heard.fingerprint);
                      material.durations[file] = heard.seconds;
                    });
}

}  // namespace run
