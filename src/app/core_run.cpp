#include "app/core_run.h"

#include "report/run_report.h"
#include "run/convert.h"
#include "run/system_services.h"

namespace app {
namespace {

report::StandardOutput console;

/// A run together with the services that it refers to.
struct CoreRun {
  CoreRun(run::Progress& progress, const std::atomic<bool>& cancelled)
      : sync(services.with(console, progress, cancelled), {}) {}

  run::SystemServices services;
  run::SyncRun sync;
};

}  // namespace

RunAnswer runCore(const RunRequest& request, run::Progress& progress,
                  const std::atomic<bool>& cancelled) {
  const auto core = std::make_shared<CoreRun>(progress, cancelled);
  RunAnswer answer;
  answer.result = core->sync.synco(request.videofiles, request.a_d, request.resx, request.resy,
                                   request.frps, request.prem);
  answer.outcome = core->sync.outcome();
  answer.sounds = core;
  return answer;
}

std::vector<std::string> convertCore(const std::vector<std::string>& videofiles,
                                     run::Progress& progress, const std::atomic<bool>& cancelled) {
  run::SystemServices services;
  return run::resemplirajgi8000(videofiles, services.with(console, progress, cancelled));
}

void reportCore(const std::vector<std::string>& result) {
  run::SystemDesktop desktop;
  (void)report::reportRun(result, console, [&desktop](const std::string& command) {
    desktop.command(command);
  });  // the window shows the result too
}

}  // namespace app
