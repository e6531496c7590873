#include "run/two_steps.h"

#include <condition_variable>
#include <deque>
#include <mutex>

#include "report/parallel.h"

namespace run {
namespace {

/// Hands out the steps. Callable from any thread.
class Handout {
 public:
  Handout(int count, const std::function<void(int)>& first, const std::function<void(int)>& second)
      : count_(count), first_(first), second_(second) {}

  void work() {
    std::unique_lock lock(mutex_);
    while (true) {
      if (begun_ < count_)
        takeFirst(lock);
      else if (!ready_.empty())
        takeSecond(lock);
      else if (ended_ == count_)
        return;
      else
        changed_.wait(lock);
    }
  }

  void rethrow() const { failed_.rethrow(); }

 private:
  void takeFirst(std::unique_lock<std::mutex>& lock) {
    const int item = begun_++;
    unlocked(lock, first_, item);
    ++ended_;
    ready_.push_back(item);
    changed_.notify_all();
  }

  void takeSecond(std::unique_lock<std::mutex>& lock) {
    const int item = ready_.front();
    ready_.pop_front();
    unlocked(lock, second_, item);
  }

  void unlocked(std::unique_lock<std::mutex>& lock, const std::function<void(int)>& step,
                int item) {
    lock.unlock();
    failed_.keep([&] { step(item); });
    lock.lock();
  }

  const int count_;
  const std::function<void(int)>& first_;
  const std::function<void(int)>& second_;
  std::mutex mutex_;
  std::condition_variable changed_;
  int begun_ = 0, ended_ = 0;  // first steps
  std::deque<int> ready_;      // items whose second step waits
  report::FirstException failed_;
};

}  // namespace

void inTwoSteps(int count, const std::function<void(int)>& first,
                const std::function<void(int)>& second) {
  Handout steps(count, first, second);
#pragma omp parallel
  steps.work();
  steps.rethrow();
}

}  // namespace run
