#include "app/run_forecast.h"

#include <algorithm>
#include <array>

namespace app {
namespace {

// About what each step takes of a whole run, estimated: converting means reading every file, and
// reading is most of the work. The time left is told from the pace, not from these.
constexpr std::array kShares = {0.62, 0.03, 0.15, 0.08, 0.11, 0.01};

constexpr double kTelling = 0.03;  // of the run; before, its pace is a matter of luck

std::size_t number(run::Stage stage) { return static_cast<std::size_t>(stage); }

/// Steps that take each file once, by its name.
bool countsMedia(run::Stage stage) {
  return stage == run::Stage::convert || stage == run::Stage::fingerprint;
}

}  // namespace

RunForecast::RunForecast(std::unordered_map<std::string, double> mediaSeconds)
    : mediaSeconds_(std::move(mediaSeconds)) {
  for (const auto& [path, seconds] : mediaSeconds_) allSeconds_ += seconds;
}

double RunForecast::partOf(const std::string& file, int done, int total) {
  if (total <= 0) return 0;
  if (done >= total) return 1;
  const auto known = mediaSeconds_.find(file);
  if (!countsMedia(stage_) || allSeconds_ <= 0 || known == mediaSeconds_.end())
    return double(done) / total;
  stageSeconds_ += known->second;
  return std::min(1.0, stageSeconds_ / allSeconds_);
}

void RunForecast::report(run::Stage stage, const std::string& file, int done, int total) {
  if (stage != stage_) {
    stage_ = stage;
    stageSeconds_ = 0;
  }
  double before = 0;
  for (std::size_t i = 0; i < number(stage); ++i) before += kShares[i];
  fraction_ =
      std::clamp(before + kShares[number(stage)] * partOf(file, done, total), fraction_, 1.0);
}

std::optional<RunForecast::Seconds> RunForecast::left(Seconds elapsed) const {
  if (fraction_ < kTelling) return std::nullopt;
  return elapsed * (1 - fraction_) / fraction_;
}

}  // namespace app
