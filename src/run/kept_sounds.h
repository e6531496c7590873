#pragma once

#include <string>
#include <utility>
#include <vector>

#include "report/console.h"
#include "run/entry.h"
#include "run/temporary_folder.h"

namespace run {

/// Deletes every converted file that is still beside a source.
void removeConverted(const std::vector<std::string>& converted);

/// Deletes the converted files that it was told of at its own end, however the run ends.
class BesideSources {
 public:
  BesideSources() = default;
  BesideSources(const BesideSources&) = delete;
  BesideSources& operator=(const BesideSources&) = delete;
  ~BesideSources() { removeConverted(converted_); }
  void expect(std::vector<std::string> converted) { converted_ = std::move(converted); }

 private:
  std::vector<std::string> converted_;
};

/// Moves the converted sounds from beside the sources into `folder`, under their own names, and
/// returns where each entry's sound now is; empty for entries that are no file. Of two sounds of
/// one name the later takes the name, the earlier is kept under another. A sound that cannot be
/// written there goes into `spare`.
std::vector<std::string> keepSounds(const std::vector<Entry>& entries, const std::string& folder,
                                    TemporaryFolder& spare, report::Console& console);

}  // namespace run
