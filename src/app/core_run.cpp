#include "app/core_run.h"

#include "report/run_report.h"
#include "run/convert.h"
#include "run/document_stage.h"
#include "run/system_services.h"

namespace app {
namespace {

report::StandardOutput console;
run::SystemDesktop systemDesktop;
run::Desktop* desktop = &systemDesktop;

run::Options optionsOf(const RunRequest& request) {
  run::Options options;
  options.project = request.project;
  options.again = request.again;
  options.formats = request.project.settings.formats;
  options.compactXmeml = request.project.settings.compactXmeml;
  options.documentsFolder = request.documentsFolder;
  return options;
}

/// A run together with the services that it refers to.
struct CoreRun {
  CoreRun(const RunRequest& request, run::Progress& progress, const std::atomic<bool>& cancelled)
      : services(*desktop),
        sync(services.withCache(console, progress, cancelled), optionsOf(request)) {}

  run::SystemServices services;
  run::SyncRun sync;
};

}  // namespace

RunAnswer runCore(const RunRequest& request, run::Progress& progress,
                  const std::atomic<bool>& cancelled) {
  const auto core = std::make_shared<CoreRun>(request, progress, cancelled);
  RunAnswer answer;
  answer.result = core->sync.synco(request.videofiles, request.a_d, request.resx, request.resy,
                                   request.frps, request.prem);
  answer.outcome = core->sync.outcome();
  answer.project = core->sync.project();
  answer.sounds = core;
  return answer;
}

std::vector<std::string> convertCore(const std::vector<std::string>& videofiles,
                                     run::Progress& progress, const std::atomic<bool>& cancelled) {
  run::SystemServices services(*desktop);
  return run::resemplirajgi8000(videofiles, services.with(console, progress, cancelled));
}

namespace {

class NoProgress final : public run::Progress {
 public:
  void moveprogressslot(int) override {}
  void moveprogressignal(int) override {}
  void stage(run::Stage, std::string_view, int, int) override {}
};

}  // namespace

run::Outcome exportCore(const project::Project& project, const std::string& folder,
                        const std::atomic<bool>& cancelled) {
  run::SystemServices services(*desktop);
  NoProgress progress;
  return run::exportDocuments(project, folder, services.withCache(console, progress, cancelled));
}

void reportCore(const std::vector<std::string>& result) {
  (void)report::reportRun(result, console, [](const std::string& command) {
    desktop->command(command);
  });  // the window shows the result too
}

void useDesktop(run::Desktop& other) { desktop = &other; }

}  // namespace app
