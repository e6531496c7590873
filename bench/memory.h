#pragma once

#include <sys/resource.h>

namespace bench {

/// The most memory that this process has held so far, in MiB. Never falls: measure the hungriest
/// thing alone or first.
inline double peakMemoryMiB() {
  rusage usage = {};
  getrusage(RUSAGE_SELF, &usage);
  return static_cast<double>(usage.ru_maxrss) / 1024;
}

}  // namespace bench
