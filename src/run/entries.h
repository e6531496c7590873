#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace run {

/// The first entry of every run's list; it is no file. The first real file thus has index 1.
inline constexpr std::string_view kDummyEntry = "test-first-element";

/// The two lines of a file list that stand around the files of one device.
inline constexpr std::string_view kBeginMarker =
    "The following files are all recorded on one device - BEGIN of the List";
inline constexpr std::string_view kEndMarker =
    "The following files are all recorded on one device - END of the List";

/// What follows a source's whole path in the name of its converted sound.
inline constexpr std::string_view kConvertedSuffix = "_temporary_file_to_be_deleted.wav";

/// Files that one run can take: an index has three decimal digits, 999 means "nothing", and the
/// dummy entry takes one.
inline constexpr int kMostFiles = 998;

bool isMarker(std::string_view entry);

/// True for a marker and for the dummy: entries that hold an index and stand for no file.
bool isPlaceholder(std::string_view entry);

std::string convertedName(std::string_view entry);
std::vector<std::string> convertedNames(std::span<const std::string> entries);

/// The list as a run works on it: the dummy entry, then every entry of `videofiles` in order.
std::vector<std::string> withDummy(std::span<const std::string> videofiles);

}  // namespace run
