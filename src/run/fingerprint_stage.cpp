#include "run/fingerprint_stage.h"

#include <algorithm>
#include <atomic>

#include "analysis/fingerprint.h"
#include "report/diagnostics.h"
#include "run/progress_bar.h"

namespace run {

void fingerprintAll(Material& material, double tolerance, const Services& services) {
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
      services.console, [](std::string_view line) { report::appendLogLine(std::string(line)); },
      [&](int pixels) { services.progress.moveprogressslot(pixels); },
      [&](int file) {
        if (entries[file].isFile())
          services.progress.stage(Stage::fingerprint, entries[file].listed, ++done, files);
      },
      [&] { return services.cancelled.load(); }};
  std::atomic<std::uint32_t> pixels = 0;
  analysis::fingerprint_all(names, material.fingerprints, material.durations,
                            static_cast<float>(tolerance), pixels, barStep(nall), listener);
}

}  // namespace run
