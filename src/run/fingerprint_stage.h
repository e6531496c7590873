#pragma once

#include <map>
#include <mutex>
#include <optional>
#include <string>

#include "analysis/fingerprint.h"
#include "run/material.h"
#include "run/sync_run.h"

namespace run {

/// Listens to sounds as soon as they are converted, while others still are.
class EarlyListener {
 public:
  EarlyListener(double tolerance, const Services& services)
      : decay_(static_cast<float>(tolerance)), services_(services) {}

  /// Fingerprints a converted sound if it is loud enough to stay the one that is used. Callable
  /// from several threads at once.
  void listen(const std::string& sound);

  /// What was heard of a sound in an earlier run.
  void put(const std::string& sound, analysis::Heard heard);

  /// What was heard of a sound, once; none if it was not listened to. For several threads at once.
  std::optional<analysis::Heard> take(const std::string& sound);

 private:
  float decay_;
  const Services& services_;
  std::mutex mutex_;
  std::map<std::string, analysis::Heard> heard_;
};

/// Fills the fingerprints and durations of all entries from their converted sounds, several at
/// once, those that were heard early from `early`. Entries without sound, and all that a cancelled
/// run did not come to, stay without landmarks.
void fingerprintAll(Material& material, double tolerance, const Services& services,
                    EarlyListener& early);

}  // namespace run
