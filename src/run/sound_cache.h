#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "analysis/fingerprint.h"

namespace run {

/// A file as it was at one moment: another length or time makes it another file. Empty: not known.
using FileKey = std::string;

/// Keeps converted sounds and their fingerprints from one run to the next, in a folder with a
/// limit. A file is known by its place, length and time. What cannot be kept or read is as if it
/// were not there. Several programs may use one folder at the same time, and every function may be
/// called from several threads at once.
class SoundCache {
 public:
  static constexpr std::uintmax_t kUsualLimit = std::uintmax_t(8) << 30;  // 140 hours of sound

  /// `folder` is made when something is kept; with an empty one nothing is.
  explicit SoundCache(std::string folder, std::uintmax_t limitBytes = kUsualLimit)
      : folder_(std::move(folder)), limit_(limitBytes) {}

  /// The place of this user's cache; empty without a profile.
  static std::string usualFolder();

  static FileKey keyOf(const std::string& source);

  /// Puts the kept sound at `target`, a path in a folder that exists; false if there is none.
  bool fetchSound(const FileKey& key, const std::string& target) const;
  void keepSound(const FileKey& key, const std::string& sound) const;
  /// Where the kept sound lies, until the next `trim` or `clear`; empty if there is none.
  std::string soundAt(const FileKey& key) const;

  /// The fingerprint made with `tolerance`.
  std::optional<analysis::Heard> fetchHeard(const FileKey& key, double tolerance) const;
  void keepHeard(const FileKey& key, double tolerance, const analysis::Heard& heard) const;

  /// Deletes what was not used for longest until the rest is within the limit.
  void trim() const;

  std::uintmax_t bytes() const;
  void clear() const;

 private:
  std::string place(const FileKey& key, const std::string& ending) const;

  std::string folder_;
  std::uintmax_t limit_;
};

}  // namespace run
