#pragma once

#include <string_view>

namespace run {

/// Whether a file of that name, without its folder, is one to take from a folder of recordings: by
/// its ending, in small or capital letters. Hidden files and converted sound of a run are not.
bool looksLikeMedia(std::string_view name);

}  // namespace run
