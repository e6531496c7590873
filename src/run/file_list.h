#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "report/outcome.h"
#include "run/device_groups.h"
#include "run/entry.h"

namespace run {

/// The list without repeats of a file, whatever way the names take to it; of several occurrences
/// the first one within a device group stays, or else the first. Each dropped path is added to
/// `repeated`. Markers stay.
std::vector<std::string> withoutRepeats(const std::vector<std::string>& videofiles,
                                        std::vector<std::string>& repeated);

/// One entry per item of `list`, the dummy included, with devices as the marker lines say.
std::vector<Entry> makeEntries(const std::vector<std::string>& list);

/// Marks every entry that was not converted to the end, or whose file is smaller than any sound is.
void markUnconverted(std::vector<Entry>& entries);

/// Marks every probed entry whose converted sound is much shorter than the medium says.
void markCutShort(std::vector<Entry>& entries);

/// Whether a file of this name is taken for a sound. Of those without a picture, a run refuses all
/// others.
bool isKnownSound(std::string_view source);

/// Whether an entry that has been asked for its frame rate is of no use: neither picture nor a
/// known sound type, or no converted file. Pure.
bool isIgnored(const Entry& entry);

/// Of every device its files, as the entries stand now.
DeviceGroups groupsOfDevices(const std::vector<Entry>& entries);

/// The marker lines go.
void dropMarkers(std::vector<Entry>& entries);

/// "999" for every missing frame rate; then the entries marked to drop go.
void dropMarked(std::vector<Entry>& entries);

}  // namespace run
