#pragma once

#include <functional>
#include <span>
#include <string>
#include <vector>

#include "run/media_probe.h"
#include "run/process.h"
#include "run/sound_places.h"
#include "run/sync_run.h"

namespace run {

/// What became of one entry.
struct Conversion {
  ProcessResult result;
  std::string sound;            // where the converted sound is, or would be
  std::string refusal, remedy;  // why ffmpeg was not asked, and what to do; empty if it was
};

/// Converts every entry that is a path with ffmpeg, several at once, and waits for all. Returns
/// how each went, in list order. A sound for which there is no room beside its source is tried in
/// the spare folder. Stops at the next file when the run is cancelled.
///
/// `media`, where given, is what the entries say of themselves: short ones then share a process.
/// `converted`, where given, is called for each entry that was tried with the place of its sound,
/// from any thread, at a time when no conversion waits to be begun; when all is returned, all of
/// that is done as well.
std::vector<Conversion> convertAll(const std::vector<std::string>& entries, SoundPlaces& places,
                                   const Services& services,
                                   std::span<const MediaProperties> media = {},
                                   const std::function<void(const std::string&)>& converted = {});

/// Whether an entry is something that comes to an end: no pipe and no device.
bool isRegularOrMissing(const std::string& entry);

/// "Resample at 8000": converts every entry and returns the converted names in list order, those
/// of markers included.
std::vector<std::string> resemplirajgi8000(std::vector<std::string> videofiles,
                                           const Services& services);

}  // namespace run
