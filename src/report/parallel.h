#pragma once

#include <atomic>
#include <exception>
#include <utility>

namespace report {

/// Hands the first exception of a parallel loop on to the thread that started it: none may leave
/// the loop itself, and memory can run short anywhere.
///
///   report::FirstException failed;
///   #pragma omp parallel for
///   for (int i = 0; i < count; ++i) failed.keep([&] { results[i] = work(i); });
///   failed.rethrow();
class FirstException {
 public:
  /// Runs `work`, unless something has failed already. Callable from any thread.
  template <class Work>
  void keep(Work&& work) noexcept {
    if (failed_) return;
    try {
      std::forward<Work>(work)();
    } catch (...) {
      if (!failed_.exchange(true)) exception_ = std::current_exception();
    }
  }

  /// To be called when all threads are done.
  void rethrow() const {
    if (exception_) std::rethrow_exception(exception_);
  }

 private:
  std::atomic<bool> failed_ = false;
  std::exception_ptr exception_;
};

}  // namespace report
