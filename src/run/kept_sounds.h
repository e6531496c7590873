#pragma once

#include <string>
#include <vector>

#include "report/console.h"
#include "run/entry.h"
#include "run/temporary_folder.h"

namespace run {

/// Moves the converted sounds into `folder`, under the names that they have beside their sources,
/// and returns where each entry's sound now is; empty for entries that are no file. Of two sounds
/// of one name the later takes the name, the earlier is kept under another. A sound that cannot be
/// written there goes into `spare`.
std::vector<std::string> keepSounds(const std::vector<Entry>& entries, const std::string& folder,
                                    TemporaryFolder& spare, report::Console& console);

}  // namespace run
