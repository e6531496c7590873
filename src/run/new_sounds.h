#pragma once

#include <optional>
#include <set>
#include <string>

#include "run/clock_command.h"
#include "run/joined_sound.h"
#include "run/outcome.h"
#include "run/sync_run.h"

namespace run {

/// The folder of results in which sound is written anew, under names that do not collide.
class NewSounds {
 public:
  NewSounds(const std::string& folder, const Services& services, Outcome& outcome);

  /// Writes `sound` (its target is chosen here) under `name`, first beside its place, then moved
  /// there. Returns where it is and lists it among the outputs, or says in a notice why not.
  std::optional<std::string> write(NewSound sound, const std::string& name);
  /// The same for a sound of several parts; `source` is what it is for.
  std::optional<std::string> write(JoinedSound sound, const std::string& name,
                                   const std::string& source);

 private:
  std::optional<std::string> make(const Command& command, const std::string& path,
                                  const std::string& source);
  std::string freePath(const std::string& name);

  std::string folder_;
  const Services& services_;
  Outcome& outcome_;
  std::set<std::string> taken_;
};

/// A file's name without its folder and ending.
std::string stemOf(const std::string& path);

}  // namespace run
