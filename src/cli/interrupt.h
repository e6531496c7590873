#pragma once

#include <atomic>

namespace cli {

/// From now on Ctrl+C and the system's other requests to end set `interrupted()`, so that the run
/// stops at its next step and cleans up; a second request ends the program at once, and
/// the guard cleans up.
void watchForInterrupt();

const std::atomic<bool>& interrupted();

}  // namespace cli
