#include "app/run_forecast.h"

#include <algorithm>

namespace app {
namespace {

constexpr double kTelling = 0.03;  // of the run; before, its pace is a matter of luck
constexpr double kTypical = 0.5;   // of the media; a step that saw less tells nothing of others

/// Steps that take each file once, by its name.
bool countsMedia(std::size_t stage) {
  return stage == static_cast<std::size_t>(run::Stage::convert) ||
         stage == static_cast<std::size_t>(run::Stage::fingerprint);
}

}  // namespace

RunForecast::RunForecast(std::unordered_map<std::string, double> mediaSeconds, const RunPace& pace)
    : mediaSeconds_(std::move(mediaSeconds)), pace_(pace) {
  for (const auto& [path, seconds] : mediaSeconds_) allSeconds_ += seconds;
  if (allSeconds_ <= 0) allSeconds_ = 1;  // steps are weighed all the same
}

double RunForecast::shareOf(const std::string& file, int done, int total) {
  if (total <= 0) return 0;
  const auto known = mediaSeconds_.find(file);
  if (!countsMedia(stage_) || known == mediaSeconds_.end() || allSeconds_ <= 1)
    return std::clamp(double(done) / total, 0.0, 1.0);
  stageSeconds_ += known->second;
  return std::min(1.0, stageSeconds_ / allSeconds_);
}

void RunForecast::report(run::Stage stage, const std::string& file, int done, int total,
                         Seconds elapsed) {
  const auto number = static_cast<std::size_t>(stage);
  if (number != stage_) {
    stage_ = number;
    stageSeconds_ = 0;
  }
  Step& step = steps_[number];
  step.seen = true;
  step.ended = elapsed.count();
  step.share = std::max(step.share, shareOf(file, done, total));
  stageEnded_ = total > 0 && done >= total;
  const double work = workDone();
  fraction_ = std::clamp(work / std::max(1e-9, work + workLeft()), fraction_, 1.0);
}

double RunForecast::workDone() const {
  double sum = 0;
  for (std::size_t i = 0; i <= stage_; ++i) sum += workOf(i) * steps_[i].share;
  return sum;
}

/// What a step that has ended did not do, nobody will.
double RunForecast::workLeft() const {
  double sum = stageEnded_ ? 0 : workOf(stage_) * (1 - steps_[stage_].share);
  for (std::size_t i = stage_ + 1; i < steps_.size(); ++i) sum += workOf(i);
  return sum;
}

std::optional<RunForecast::Seconds> RunForecast::left(Seconds elapsed) const {
  const double done = workDone();
  if (fraction_ < kTelling || done <= 0) return std::nullopt;
  return elapsed * workLeft() / done;
}

RunPace RunForecast::learned(Seconds elapsed) const {
  RunPace pace = pace_;
  double begun = 0;
  for (std::size_t i = 0; i < steps_.size(); ++i) {
    if (!steps_[i].seen) continue;
    const double ended = i == stage_ ? elapsed.count() : steps_[i].ended;
    if (steps_[i].share >= kTypical && allSeconds_ > 1) pace[i] = (ended - begun) / allSeconds_;
    begun = steps_[i].ended;
  }
  return pace;
}

}  // namespace app
