#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <unordered_map>

#include "run/sync_run.h"

namespace app {

/// How far a run is and how long it will take, told by the seconds of media that its steps have
/// dealt with. Knows no clock and no window.
class RunForecast {
 public:
  using Seconds = std::chrono::duration<double>;

  /// `mediaSeconds` is the length of each file of the run by its path; unknown lengths are 0.
  explicit RunForecast(std::unordered_map<std::string, double> mediaSeconds);
  RunForecast() = default;

  /// Takes one report of the run.
  void report(run::Stage stage, const std::string& file, int done, int total);

  /// The share of the run that is over, 0 to 1; never falls.
  double fraction() const { return fraction_; }
  /// The time left, `elapsed` after the start; none while too little has been seen to tell.
  std::optional<Seconds> left(Seconds elapsed) const;

 private:
  double partOf(const std::string& file, int done, int total);

  std::unordered_map<std::string, double> mediaSeconds_;
  double allSeconds_ = 0;
  run::Stage stage_ = run::Stage::convert;
  double stageSeconds_ = 0;  // of media, dealt with in this step
  double fraction_ = 0;
};

}  // namespace app
