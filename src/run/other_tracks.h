#pragma once

#include <string>
#include <vector>

#include "run/entry.h"
#include "run/sync_run.h"
#include "run/temporary_folder.h"

namespace run {

/// Where the converted sound of a file is nearly silent although it has more tracks or channels,
/// puts the first of those in its place that is much louder: a microphone that was connected to
/// another input, or one whose wires are exchanged in one of two channels, which then cancel each
/// other out. Each entry keeps which stream that was. Returns what the user should know of it, a
/// sentence each, in list order.
std::vector<std::string> useOtherTracks(std::vector<Entry>& entries, TemporaryFolder& spare,
                                        const Services& services);

}  // namespace run
