#pragma once

#include <pthread.h>

#include <memory>

namespace report {

/// One object of `Type` for each thread, made at its first use and deleted when the thread ends. In
/// place of thread_local, whose memory mingw-w64 may release before it destroys what lies there.
/// Make one with static storage; callable from any thread.
template <class Type>
class PerThread {
 public:
  PerThread() {
    pthread_key_create(&key_, [](void* object) { delete static_cast<Type*>(object); });
  }
  PerThread(const PerThread&) = delete;
  PerThread& operator=(const PerThread&) = delete;

  Type& operator*() const {
    if (void* object = pthread_getspecific(key_)) return *static_cast<Type*>(object);
    auto made = std::make_unique<Type>();
    pthread_setspecific(key_, made.get());
    return *made.release();
  }

 private:
  pthread_key_t key_{};
};

}  // namespace report
