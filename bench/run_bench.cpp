// What a whole run costs beside the decoding alone (every file by an ffmpeg of its own, with -vn):
// the time of each stage in one go, wall and processor time, hours of sound per second, peak
// memory. Conversions, probing and fingerprints overlap: what the stage of the fingerprints takes
// is what was left of them.
//   run_bench [--no-place] [FILE...]    with the given recordings (whole paths); without, with four
//   of ten minutes made here. --no-place: the votes' offsets, without placement by sound
#include <sys/resource.h>

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

/// Processor time of this process and of all programs that it waited for.
double processorSeconds() {
  double seconds = 0;
  for (const int who : {RUSAGE_SELF, RUSAGE_CHILDREN}) {
    rusage usage = {};
    getrusage(who, &usage);
    for (const timeval& time : {usage.ru_utime, usage.ru_stime})
      seconds += static_cast<double>(time.tv_sec) + 1e-6 * static_cast<double>(time.tv_usec);
  }
  return seconds;
}

struct Cost {
  double wall = 0, processor = 0;  // seconds
};

template <class Work>
Cost costOf(Work&& work) {
  const auto start = std::chrono::steady_clock::now();
  const double before = processorSeconds();
  work();
  return {Seconds(std::chrono::steady_clock::now() - start).count(), processorSeconds() - before};
}

Cost measureDecoding(const std::vector<std::string>& files, const run::Services& services) {
  run::TemporaryFolder spare;
  run::SoundPlaces places(files, spare);
  const Cost cost = costOf([&] { (void)run::convertAll(files, places, services); });
  return cost;
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
  std::vector<std::string> files(argv + 1, argv + argc);
  run::Options options;
  options.align = std::erase(files, "--no-place") == 0;
  if (files.empty()) files = makeRecordings(folder);
  std::filesystem::current_path(folder.path());  // the two tables go there
  report::NoConsole console;
  const std::atomic<bool> never = false;
  run::SystemServices system;
  Stopwatch unused, stopwatch;
  const double hours = hoursOf(files, system.probe());
  const Cost decoding = measureDecoding(files, system.with(console, unused, never));

  options.openFolders = false;
  run::SyncRun run(system.with(console, stopwatch, never), options);
  const auto start = std::chrono::steady_clock::now();
  const Cost whole = costOf([&] { run.synco(files, 0.99, 1920, 1080, 25, 1); });

  std::printf("%zu recordings, %.2f h of sound, %zu group(s)\n", files.size(), hours,
              run.outcome().groups.size());
  show("decoding alone", decoding.wall, hours);
  show("whole run", whole.wall, hours);
  showStages(stopwatch, start, hours);
  std::printf("processor time: %.2f s, decoding alone %.2f s\n", whole.processor,
              decoding.processor);
  std::printf("whole run / decoding alone: %.2f wall, %.2f processor\n", whole.wall / decoding.wall,
              whole.processor / decoding.processor);
  std::printf("peak memory: %.0f MiB\n", bench::peakMemoryMiB());
}
