#pragma once

#include <array>
#include <chrono>
#include <optional>
#include <string>
#include <unordered_map>

#include "run/sync_run.h"

namespace app {

/// How long each step of a run takes, in seconds for a second of media.
using RunPace = std::array<double, 6>;

/// A rough guess for the first run: reading is most of the work. The runs of this computer tell
/// better.
inline constexpr RunPace kFirstPace = {2.5e-3, 5e-5, 4e-4, 2e-4, 4e-4, 5e-5};

/// How far a run is and how long it will take, told by the seconds of media that its steps have
/// dealt with and by what each step took in earlier runs. Steps that have less to do than that,
/// since earlier runs have heard the files, count for what they do. Knows no clock and no window.
class RunForecast {
 public:
  using Seconds = std::chrono::duration<double>;

  /// `mediaSeconds` is the length of each file of the run by its path; unknown lengths are 0.
  RunForecast(std::unordered_map<std::string, double> mediaSeconds, const RunPace& pace);
  RunForecast() = default;

  /// Takes one report of the run, `elapsed` after its start.
  void report(run::Stage stage, const std::string& file, int done, int total, Seconds elapsed);

  /// The share of the run that is over, 0 to 1; never falls.
  double fraction() const { return fraction_; }
  /// The time left, `elapsed` after the start; none while too little has been seen to tell.
  std::optional<Seconds> left(Seconds elapsed) const;
  /// What the run that ended `elapsed` after its start took. Steps that have dealt with less than
  /// half of the media say nothing of the next run and keep what was known.
  RunPace learned(Seconds elapsed) const;

 private:
  struct Step {
    double ended = 0;  // seconds after the start, at its last report
    double share = 0;  // of what it could have to do, 0 to 1
    bool seen = false;
  };
  double shareOf(const std::string& file, int done, int total);
  double workOf(std::size_t stage) const { return pace_[stage] * allSeconds_; }
  double workDone() const;
  double workLeft() const;

  std::unordered_map<std::string, double> mediaSeconds_;
  RunPace pace_ = kFirstPace;
  double allSeconds_ = 0;
  std::array<Step, 6> steps_;
  std::size_t stage_ = 0;
  double stageSeconds_ = 0;  // of media, dealt with in this step
  bool stageEnded_ = false;
  double fraction_ = 0;
};

}  // namespace app
