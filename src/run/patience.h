#pragma once

#include <chrono>
#include <cstdint>

namespace run {

/// Notices when a program has done nothing for too long.
class Patience {
 public:
  using Clock = std::chrono::steady_clock;

  explicit Patience(std::chrono::milliseconds limit) : limit_(limit) {}

  /// `work` is any count that changes as long as something is done.
  bool isExhausted(std::uint64_t work) {
    const Clock::time_point now = Clock::now();
    if (work != work_) {
      work_ = work;
      since_ = now;
    }
    return now - since_ > limit_;
  }

 private:
  std::chrono::milliseconds limit_;
  std::uint64_t work_ = 0;
  Clock::time_point since_ = Clock::now();
};

}  // namespace run
