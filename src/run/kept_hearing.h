#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "run/fingerprint_stage.h"
#include "run/material.h"
#include "run/sound_cache.h"
#include "run/temporary_folder.h"

namespace run {

/// What one run takes from the cache and what it leaves there. Without a cache every step does
/// nothing. For the run's thread.
class KeptHearing {
 public:
  /// `cache` may be null. Sounds taken from it lie in `spare` until the run keeps them.
  KeptHearing(const SoundCache* cache, TemporaryFolder& spare) : cache_(cache), spare_(spare) {}

  /// Takes the sounds of the list's files that were heard before. Returns the list with markers in
  /// their places: what is left to convert.
  std::vector<std::string> fetch(const std::vector<std::string>& list);

  /// Tells the entries where the sounds taken are.
  void putInto(std::vector<Entry>& entries) const;

  /// Keeps nothing of the files that a sentence names: theirs is not the sound that another run
  /// would make first.
  void forget(const std::string& sentence);

  /// Hands on the fingerprints of the sounds taken, as far as there are such of this tolerance.
  void fetchHeard(double tolerance, EarlyListener& early);

  /// Leaves the fingerprints of the other files in the cache.
  void keepHeard(const Material& material, double tolerance) const;

  /// Leaves the sounds in the cache that did not come from there, of files that are as they were,
  /// and holds the cache's limit.
  void keepSounds(const Material& material) const;

 private:
  bool isWhole(const Entry& entry) const;

  const SoundCache* cache_;
  TemporaryFolder& spare_;
  // all by the path as it is listed
  std::map<std::string, FileKey> keys_;        // of files that may be kept
  std::map<std::string, std::string> sounds_;  // those taken
  std::set<std::string> heard_;                // those whose fingerprints were taken
};

}  // namespace run
