#pragma once

#include "app/qml_file.h"
#include "app/run_session.h"
#include "run/sync_run.h"

namespace app {

/// Carries a run's progress to the bridge and the session. Callable from any thread: signals of
/// the bridge reach the window queued from others than the GUI thread.
class RunProgress final : public run::Progress {
 public:
  RunProgress(QMLFile& bridge, RunSession& session) : bridge_(bridge), session_(session) {}

  void moveprogressslot(int pixels) override { bridge_.moveprogressslot(pixels); }
  void moveprogressignal(int pixels) override { Q_EMIT bridge_.moveprogressignal(pixels); }
  void stage(run::Stage stage, std::string_view file, int done, int total) override {
    session_.report(stage, file, done, total);
  }

 private:
  QMLFile& bridge_;
  RunSession& session_;
};

}  // namespace app
