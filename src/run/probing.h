#pragma once

#include <string>
#include <vector>

#include "report/outcome.h"
#include "run/entry.h"
#include "run/sync_run.h"

namespace run {

/// What every entry says of itself, in list order: several are asked at once, each a single time,
/// because the library reads far into some files. Markers, the dummy and what never ends stay
/// empty.
std::vector<MediaProperties> askAll(const std::vector<std::string>& entries,
                                    const Services& services);

/// Takes over what the converted entries said of themselves. Entries of no use are marked to be
/// dropped, appended to `result` as their source stands then, and told of in `ignored` in plain
/// words.
void probeAll(std::vector<Entry>& entries, const Services& services,
              std::vector<std::string>& result, std::vector<report::LeftOut>& ignored);

}  // namespace run
