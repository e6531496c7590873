#pragma once

#include <atomic>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "project/project.h"
#include "report/console.h"
#include "run/outcome.h"

namespace run {

class Clock;          // run/clock.h
class Desktop;        // run/desktop.h
class MediaProbe;     // run/media_probe.h
class ProcessRunner;  // run/process.h
class SoundCache;     // run/sound_cache.h

enum class Stage { convert, probe, fingerprint, compare, place, write };

/// How a run tells of its progress. Callable from any thread.
class Progress {
 public:
  virtual ~Progress() = default;
  /// Sets the bar's width in pixels, 0 to 651, with its console lines.
  virtual void moveprogressslot(int pixels) = 0;
  /// The bare signal, as the comparison sends it once.
  virtual void moveprogressignal(int pixels) = 0;
  /// `done` of `total` items of `stage` are ready; `file` is the one just worked on.
  virtual void stage(Stage stage, std::string_view file, int done, int total) = 0;
};

/// The outside world as a run sees it; every member outlives the run.
struct Services {
  ProcessRunner& processes;
  MediaProbe& probe;
  Clock& clock;
  Desktop& desktop;
  report::Console& console;
  Progress& progress;
  const std::atomic<bool>& cancelled;  // polled at every file and pair
  const SoundCache* cache = nullptr;   // what was heard in earlier runs; none: hear all anew
};

/// Settings beyond those that `synco` takes.
struct Options {
  bool align = true;          // place by the sound itself; false: accepted pairs, vote's offsets
  bool openFolders = true;    // open the results at the end
  bool compactXmeml = false;  // the fixed fragments alone
  std::vector<std::string> formats;  // empty: the usual ones
  std::string documentsFolder;       // of the documents, a whole path; empty: that of the results
  std::optional<std::string> drift;  // "off", "sound", "pieces"; none: as the project has it
  std::optional<bool> replaceAudio, cameraSound;  // the same
  project::Project project;        // what is known before the run: devices, places that stay
  std::vector<project::Id> again;  // recordings of it to place; all others stay. Empty: all
};

/// One synchronisation from media files to documents. An object serves one run.
class SyncRun {
 public:
  SyncRun(Services services, Options options);
  ~SyncRun();

  /// The whole run, in the calling thread. `videofiles` holds paths and device group markers;
  /// `a_d` is the tolerance, `resx` x `resy` pixels and `frps` frames per second the sequence,
  /// `prem` the mode flag; rate and size are 0 to follow the pictures.
  /// Returns a status text, then the files that were ignored.
  std::vector<std::string> synco(std::vector<std::string> videofiles, double a_d, int resx,
                                 int resy, float frps, int prem);

  /// What the last `synco` found, for showing.
  const Outcome& outcome() const;

  /// The project that the run was given, with what it found. A cancelled run leaves all places as
  /// they were.
  const project::Project& project() const;

 private:
  struct State;
  static std::vector<std::string> runAll(State& state, const struct Settings& settings,
                                         const std::vector<std::string>& list);
  std::unique_ptr<State> state_;
};

}  // namespace run
