#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace run {

/// Whether a file of that name, without its folder, is one to take from a folder of recordings: by
/// its ending, in small or capital letters. Hidden files and converted sound of a run are not.
bool looksLikeMedia(std::string_view name);

/// Whether a name is one that folders keep from view.
bool isHidden(std::string_view name);

/// The media files in `folder` and in the folders below it, in the order of their names as people
/// count: take 2 before take 10. Hidden ones, and folders that may not be read, are passed over.
std::vector<std::string> mediaFilesBelow(const std::string& folder);

}  // namespace run
