#pragma once

#include <atomic>

#include "run/clock.h"
#include "run/desktop.h"
#include "run/media_probe.h"
#include "run/process.h"
#include "run/sync_run.h"

namespace run {

/// The outside world of this computer, for the window and the command line alike.
class SystemServices {
 public:
  /// What a run needs; refers to this object and the arguments, which must outlive the run.
  Services with(report::Console& console, Progress& progress, const std::atomic<bool>& cancelled) {
    return {processes_, probe_, clock_, desktop_, console, progress, cancelled};
  }
  Desktop& desktop() { return desktop_; }
  MediaProbe& probe() { return probe_; }

 private:
  SystemProcesses processes_;
  MediaInfoProbe probe_;
  SystemClock clock_;
  SystemDesktop desktop_;
};

}  // namespace run
