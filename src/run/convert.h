#pragma once

#include <functional>
#include <span>
#include <string>
#include <vector>

#include "run/media_probe.h"
#include "run/process.h"
#include "run/sync_run.h"

namespace run {

/// Converts every entry that is a path with ffmpeg, several at once, and waits for all. Returns
/// how each went, in list order; whether a conversion worked is told by the size of its file.
/// A file is left out whose converted name is itself in the list, because no source may be
/// overwritten. Stops at the next file when the run is cancelled.
///
/// `media`, where given, is what the entries say of themselves: short ones then share a process.
/// `converted`, where given, is called for each entry that was tried, from any thread, at a time
/// when no conversion waits to be begun; when all is returned, all of that is done as well.
std::vector<ProcessResult> convertAll(const std::vector<std::string>& entries,
                                      const Services& services,
                                      std::span<const MediaProperties> media = {},
                                      const std::function<void(int)>& converted = {});

/// Whether an entry is something that comes to an end: no pipe and no device.
bool isRegularOrMissing(const std::string& entry);

/// The converted names of the list's files without those that are themselves in the list: what a
/// run may delete.
std::vector<std::string> ownConvertedNames(const std::vector<std::string>& entries);

/// "Resample at 8000": converts every entry and returns the converted names in list order, those
/// of markers included.
std::vector<std::string> resemplirajgi8000(std::vector<std::string> videofiles,
                                           const Services& services);

}  // namespace run
