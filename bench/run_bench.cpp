// What a whole run costs: the time of the conversions alone and of each stage in one go, hours of
// sound per second of each stage, and peak memory.
//   run_bench [FILE...]    with the given recordings (whole paths); without, with four of ten
//   minutes made here
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <map>
#include <mutex>

#include "bench/memory.h"
#include "report/profile.h"
#include "run/convert.h"
#include "run/kept_sounds.h"
#include "run/sync_run.h"
#include "run/system_services.h"
#include "tests/run/media.h"

namespace {

using Seconds = std::chrono::duration<double>;
using Moment = std::chrono::steady_clock::time_point;

constexpr double kMinutesMade = 10;

/// Notes when the last item of each stage was ready.
class Stopwatch final : public run::Progress {
 public:
  void moveprogressslot(int) override {}
  void moveprogressignal(int) override {}
  void stage(run::Stage stage, std::string_view, int, int) override {
    const std::lock_guard lock(mutex_);
    ready_[stage] = std::chrono::steady_clock::now();
  }
  const std::map<run::Stage, Moment>& ready() const { return ready_; }

 private:
  std::mutex mutex_;
  std::map<run::Stage, Moment> ready_;
};

/// Recordings of one event as cameras make them.
std::vector<std::string> makeRecordings(const Folder& folder) {
  constexpr int kCount = 4;
  const auto sound = liveSound((kMinutesMade + 1) * 60, 1);
  std::vector<std::string> files;
  for (int i = 0; i < kCount; ++i) {
    const double start = 7.3 * i;
    const std::string wav =
        folder.write("sound.wav", wavText(cut(sound, start, start + kMinutesMade * 60)));
    files.push_back(folder.file("camera " + std::to_string(i) + ".mp4"));
    if (!ffmpeg({"-i", wav, "-f", "lavfi", "-i", "color=s=64x48:r=25", "-shortest", "-c:v", "mpeg4",
                 "-c:a", "aac", "-ar", "48000", files.back()}))
      std::fprintf(stderr, "cannot make %s\n", files.back().c_str());
  }
  return files;
}

double hoursOf(const std::vector<std::string>& files, run::MediaProbe& probe) {
  double hours = 0;
  for (const std::string& file : files) hours += probe.query(file).facts.lengthSeconds / 3600;
  return hours;
}

void show(const char* what, double seconds, double hours) {
  std::printf("%-22s %8.2f s  %8.3f h of sound/s\n", what, seconds, hours / seconds);
}

double measureConversions(const std::vector<std::string>& files, const run::Services& services) {
  const auto start = std::chrono::steady_clock::now();
  (void)run::convertAll(files, services);
  const double seconds = Seconds(std::chrono::steady_clock::now() - start).count();
  run::removeConverted(run::ownConvertedNames(files));
  return seconds;
}

void showStages(const Stopwatch& stopwatch, Moment start, double hours) {
  const char* names[] = {"  conversion", "  probing",   "  fingerprints",
                         "  comparison", "  placement", "  documents"};
  for (const auto& [stage, ready] : stopwatch.ready()) {
    show(names[static_cast<int>(stage)], Seconds(ready - start).count(), hours);
    start = ready;
  }
}

}  // namespace

int main(int argc, char** argv) {
  const Folder folder;
  report::useProfileFolder(folder.file("profile"));
  const std::vector<std::string> files =
      argc > 1 ? std::vector<std::string>(argv + 1, argv + argc) : makeRecordings(folder);
  std::filesystem::current_path(folder.path());  // the two tables go there
  report::NoConsole console;
  const std::atomic<bool> never = false;
  run::SystemServices system;
  Stopwatch unused, stopwatch;
  const double hours = hoursOf(files, system.probe());
  const double conversions = measureConversions(files, system.with(console, unused, never));

  run::Options options;
  options.openFolders = false;
  run::SyncRun run(system.with(console, stopwatch, never), options);
  const auto start = std::chrono::steady_clock::now();
  run.synco(files, 0.99, 1920, 1080, 25, 1);
  const double whole = Seconds(std::chrono::steady_clock::now() - start).count();

  std::printf("%zu recordings, %.2f h of sound, %zu group(s)\n", files.size(), hours,
              run.outcome().groups.size());
  show("conversions alone", conversions, hours);
  show("whole run", whole, hours);
  showStages(stopwatch, start, hours);
  std::printf("whole run / conversions alone: %.2f\n", whole / conversions);
  std::printf("peak memory: %.0f MiB\n", bench::peakMemoryMiB());
}
