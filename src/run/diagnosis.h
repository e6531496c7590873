#pragma once

#include "report/outcome.h"
#include "run/entry.h"
#include "run/media_probe.h"

namespace run {

/// Why the file of `entry` cannot be used and what to do about it, in plain words: from what the
/// file system, ffmpeg and the media library say. To be asked only of an ignored entry.
report::LeftOut diagnose(const Entry& entry, MediaProbe& probe);

}  // namespace run
