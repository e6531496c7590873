#pragma once

#include <span>
#include <string>
#include <vector>

namespace run {

/// Which files come from one device: one inner vector per device, of indices into the list.
using DeviceGroups = std::vector<std::vector<int>>;

/// Reads the marker lines of `converted`, the list of converted names (every entry, markers too,
/// carries the suffix). Groups do not nest, groups of fewer than two files are left out, and a
/// begin line without an end line takes the rest of the list, while a later begin line in it opens
/// a further group that overlaps it. Indices count `converted` as it stands.
DeviceGroups deviceGroups(const std::vector<std::string>& converted);

/// The device of each of `count` entries: the index of the first group that holds it, or -1.
std::vector<int> devicesOf(const DeviceGroups& groups, int count);

/// True if some group holds both files.
bool shareGroup(const DeviceGroups& groups, int first, int second);

}  // namespace run
