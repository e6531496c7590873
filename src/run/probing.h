#pragma once

#include <string>
#include <vector>

#include "report/outcome.h"
#include "run/entry.h"
#include "run/sync_run.h"

namespace run {

/// Asks every entry for its frame rate. Entries of no use are marked to be dropped, appended to
/// `result` as their source stands then, and told of in `ignored` in plain words.
void probeAll(std::vector<Entry>& entries, const Services& services,
              std::vector<std::string>& result, std::vector<report::LeftOut>& ignored);

}  // namespace run
