#pragma once

#include <filesystem>

namespace run {

/// Starts a small process beside this one that cleans up where this one cannot do so itself: killed
/// or crashed, it leaves no program that it has started, with all that those have started, and no
/// file of unfinished work. On Windows the system ends the programs and the next run removes the
/// files, so that nothing is started there. For the beginning of `main`, before other threads are.
void startGuard();

// What is to be ended or removed until it is released. Without a guard they do nothing. Callable
// from any thread.

/// All processes of a group, by its number.
void guardGroup(int group);
void releaseGroup(int group);

/// A file, or a folder with all that is in it.
void guardPath(const std::filesystem::path& path);
void releasePath(const std::filesystem::path& path);

}  // namespace run
