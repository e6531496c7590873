#pragma once

#include <map>
#include <span>
#include <string>

#include "analysis/sound_file.h"

namespace app {

/// Reads pieces of sound files that it keeps open. For one thread.
class SoundStore {
 public:
  /// Fills `out` with the samples of the first channel of the file at `path` (UTF-8) from `first`
  /// on; what lies outside of the file, or cannot be read, is silence.
  void read(const std::string& path, std::int64_t first, std::span<float> out);

 private:
  struct Open {
    analysis::SoundFile file;
    SF_INFO info = {};
  };
  Open& open(const std::string& path);

  std::map<std::string, Open> files_;
};

}  // namespace app
