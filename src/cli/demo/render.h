#pragma once

#include <filesystem>

#include "cli/demo/scene.h"
#include "report/status.h"
#include "run/process.h"

namespace cli::demo {

/// Writes `sound` as a media file: a camera's with `picture` (ffmpeg's description of a test
/// picture) and AAC sound, or, without one, a WAV of 16 bits. The folder must exist.
report::Status writeMedia(const Sound& sound, const std::string& picture,
                          const std::filesystem::path& file, run::ProcessRunner& processes);

/// Renders every take of `scene` below `folder`, several at once.
report::Status renderScene(const Scene& scene, const std::filesystem::path& folder,
                           run::ProcessRunner& processes);

}  // namespace cli::demo
