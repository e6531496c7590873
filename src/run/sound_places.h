#pragma once

#include <memory>
#include <mutex>
#include <set>
#include <string>
#include <vector>

#include "report/folder_lock.h"
#include "run/temporary_folder.h"

namespace run {

/// Where the converted sound of each source goes: beside it, or, where that folder may not be
/// written or another run is at work in it, into a spare folder. What a broken-off run has left in
/// the folders is removed first, what this one leaves at its own end, however it ends.
class SoundPlaces {
 public:
  /// `entries` is the whole list. `spare` outlives this object.
  SoundPlaces(const std::vector<std::string>& entries, TemporaryFolder& spare);
  ~SoundPlaces();
  SoundPlaces(const SoundPlaces&) = delete;
  SoundPlaces& operator=(const SoundPlaces&) = delete;

  /// A new empty file beside the entry; empty if none may be made there. Callable from any thread,
  /// as is the other.
  std::string beside(const std::string& entry);
  /// A name in the spare folder for the entry of that index; empty if there is no such folder.
  std::string spare(std::size_t index);

  /// What lies beside the sources is the caller's from now on.
  void leave();

  /// Whether the entry is no recording but what a run that was broken off has left of another one.
  static bool isLeftover(const std::string& entry);

 private:
  void removeLeftovers(const std::string& folder);

  std::set<std::string> listed_;                           // whole paths of all sources
  std::vector<std::unique_ptr<report::FolderLock>> mine_;  // until all has been removed
  std::set<std::string> folders_;                          // those that are this run's alone
  TemporaryFolder& spare_;
  std::mutex mutex_;
  std::vector<std::string> made_;
};

}  // namespace run
