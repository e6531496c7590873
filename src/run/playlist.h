#pragma once

#include <string>

namespace run {

/// Whether the file is a text: a playlist, a list of streams or the like. ffmpeg follows those to
/// other files and to the network, where it may wait for ever; no recording is one. False where the
/// file cannot be read.
bool isPlaylist(const std::string& file);

}  // namespace run
