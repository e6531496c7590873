#include <exception>
#include <new>
#include <utility>

#include "analysis/collection.h"
#include "analysis/fingerprint.h"
#include "analysis/hearing.h"
#include "analysis/line.h"
#include "report/parallel.h"

namespace analysis {
namespace {

constexpr std::uint32_t kBarWidth = 652;  // pixels

bool isCancelled(const FingerprintListener& listener) {
  return listener.cancelled && listener.cancelled();
}

void appendLogLine(const FingerprintListener& listener, std::string_view text) {
  if (listener.appendLogLine) listener.appendLogLine(text);
}

PackedFingerprint combined(std::vector<std::vector<Landmark>> delays, report::Console& console) {
  Collection collection(std::move(delays));
  const std::string rule(55, '$');
  console.line(rule);
  console.line(line("kombinirani maksovi nroj e:", collection.rows()));  // combined peaks
  console.line(rule);
  console.line("727");
  return std::move(collection).sorted();
}

Heard hearOrKnown(const std::string& path, int file, float a_dec,
                  const FingerprintListener& listener) {
  if (listener.known)
    if (std::optional<Heard> heard = listener.known(file)) return std::move(*heard);
  return fingerprintFile(path, a_dec, listener);
}

// Threads may lose an update of each other's; that only disturbs the bar.
void moveBar(std::atomic<std::uint32_t>& progress, float weight, Eigen::Index rows,
             const FingerprintListener& listener) {
  const float width = static_cast<float>(progress.load()) + weight + static_cast<float>(rows / 300);
  const auto pixels = static_cast<std::uint32_t>(width);
  progress = pixels < kBarWidth ? pixels : 0;
  if (pixels < kBarWidth && listener.moveprogress) listener.moveprogress(static_cast<int>(pixels));
}

}  // namespace

// One unreadable file stays without landmarks; the others go on.
Heard fingerprintFile(const std::string& path, float a_dec, const FingerprintListener& listener) {
  Heard heard;
  try {
    auto delays = landmarksOfFile(path, kShifts, heard.seconds, {a_dec}, listener.console,
                                  [&] { return isCancelled(listener); });
    heard.fingerprint = combined(std::move(delays), listener.console);
  } catch (const std::bad_alloc&) {
    throw;  // the others would fare no better
  } catch (const std::exception& error) {
    appendLogLine(listener, line("cannot fingerprint ", path, ": ", error.what()));
    heard.fingerprint = PackedFingerprint(emptyFingerprint());
  }
  return heard;
}

void hearAll(std::span<const std::string> names, float a_dec, std::atomic<std::uint32_t>& progress,
             float weight, const FingerprintListener& listener,
             const std::function<void(int, Heard)>& take) {
  const auto hear = [&](int file) {
    if (isCancelled(listener)) return;
    appendLogLine(listener, "687");
    Heard heard = hearOrKnown(names[file], file, a_dec, listener);
    const Eigen::Index rows = heard.fingerprint.rows();
    take(file, std::move(heard));
    listener.console.line("posle namaluvanje");  // after the reduction
    appendLogLine(listener, line("vkupniot broj na maksovi:", static_cast<float>(2 * rows)));
    moveBar(progress, weight, rows, listener);
    if (listener.fileDone) listener.fileDone(file);
  };
  report::FirstException failed;
#pragma omp parallel for schedule(static)
  for (int file = 0; file < std::ssize(names); ++file) failed.keep([&] { hear(file); });
  failed.rethrow();
}

void fingerprint_all(std::span<const std::string> names, std::span<MatrixXLI> all,
                     Eigen::VectorXf& traenje, float a_dec, std::atomic<std::uint32_t>& progress,
                     float weight, const FingerprintListener& listener) {
  hearAll(names, a_dec, progress, weight, listener, [&](int file, Heard heard) {
    all[file] = heard.fingerprint.matrix();
    traenje[file] = heard.seconds;
  });
}

}  // namespace analysis
