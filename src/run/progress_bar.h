#pragma once

#include <atomic>

#include "run/sync_run.h"

namespace run {

inline constexpr int kBarEnd = 652;  // pixels; the bar stays below

/// What one item of `count` adds to the bar: a whole number, so that many items may add nothing.
inline float barStep(int count) { return count > 0 ? static_cast<float>(kBarEnd / count) : 0.0f; }

/// The bar of one stage: every finished item moves it on by one step. Callable from any thread.
class ProgressBar {
 public:
  ProgressBar(Progress& progress, int count) : progress_(progress), step_(barStep(count)) {}

  void advance() {
    int before = pixels_;
    while (!pixels_.compare_exchange_weak(before, next(before))) {
    }
    if (next(before) < kBarEnd) progress_.moveprogressslot(next(before));
  }

 private:
  int next(int pixels) const { return static_cast<int>(static_cast<float>(pixels) + step_); }

  Progress& progress_;
  float step_;
  std::atomic<int> pixels_ = 0;
};

}  // namespace run
