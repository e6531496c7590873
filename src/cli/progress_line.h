#pragma once

#include <chrono>
#include <cstdio>
#include <functional>
#include <mutex>
#include <string>
#include <string_view>

#include "run/sync_run.h"

namespace cli {

/// What a run is doing, for one line of a terminal.
struct Step {
  run::Stage stage;
  std::string file;  // the one just worked on; may be empty
  int done, total;
  double seconds;  // since the start
};

/// The step in at most `columns` columns: stage, percent, time, and as much of the file's name as
/// fits. UTF-8, printable.
std::string progressText(const Step& step, int columns);

/// Shows the progress of a run in one line that is written over and over.
class ProgressLine final : public run::Progress {
 public:
  using Clock = std::chrono::steady_clock;

  /// Writes to `stream`, a terminal; `columns` tells its width, 0 to show nothing.
  ProgressLine(std::FILE* stream, std::function<int()> columns);
  ~ProgressLine() override;
  void moveprogressslot(int) override {}
  void moveprogressignal(int) override {}
  void stage(run::Stage stage, std::string_view file, int done, int total) override;

  /// Wipes the line, so that other text can follow.
  void clear();

 private:
  bool isDue(run::Stage stage, bool last);

  std::FILE* stream_;
  std::function<int()> columns_;
  const Clock::time_point start_ = Clock::now();
  std::mutex mutex_;
  Clock::time_point shown_{};
  run::Stage shownStage_{};
  bool visible_ = false;
};

}  // namespace cli
