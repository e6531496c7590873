#pragma once

#include <atomic>

#include "run/clock.h"
#include "run/desktop.h"
#include "run/media_probe.h"
#include "run/process.h"
#include "run/sound_cache.h"
#include "run/sync_run.h"

namespace run {

/// The outside world of this computer, for the window and the command line alike.
class SystemServices {
 public:
  SystemServices() = default;
  /// With another desktop than the system's, which must outlive this object.
  explicit SystemServices(Desktop& desktop) : desktop_(desktop) {}

  /// What a run needs; refers to this object and the arguments, which must outlive the run.
  Services with(report::Console& console, Progress& progress, const std::atomic<bool>& cancelled) {
    return {processes_, probe_, clock_, desktop_, console, progress, cancelled};
  }
  /// The same with what this user's earlier runs have heard.
  Services withCache(report::Console& console, Progress& progress,
                     const std::atomic<bool>& cancelled) {
    Services services = with(console, progress, cancelled);
    cache_ = SoundCache(SoundCache::usualFolder());
    services.cache = &cache_;
    return services;
  }
  Desktop& desktop() { return desktop_; }
  MediaProbe& probe() { return probe_; }

 private:
  SystemProcesses processes_;
  MediaInfoProbe probe_;
  SystemClock clock_;
  SystemDesktop systemDesktop_;
  Desktop& desktop_ = systemDesktop_;
  SoundCache cache_{""};
};

}  // namespace run
