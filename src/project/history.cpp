#include "project/history.h"

#include <utility>

namespace project {
namespace {

constexpr std::size_t kMostSteps = 100;  // of a thousand clips: about 100 MB

}  // namespace

void History::advance(Project next, std::string what) {
  if (next == now_) return;
  past_.push_back({std::exchange(now_, std::move(next)), std::move(what)});
  if (past_.size() > kMostSteps) past_.erase(past_.begin());
  future_.clear();
}

void History::amend(Project next) { now_ = std::move(next); }

void History::undo() {
  if (past_.empty()) return;
  Step step = std::move(past_.back());
  past_.pop_back();
  future_.push_back({std::exchange(now_, std::move(step.project)), std::move(step.what)});
}

void History::redo() {
  if (future_.empty()) return;
  Step step = std::move(future_.back());
  future_.pop_back();
  past_.push_back({std::exchange(now_, std::move(step.project)), std::move(step.what)});
}

}  // namespace project
