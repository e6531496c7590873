#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace analysis {

inline constexpr int kSampleRate = 8000;  // Hz; every recording is converted to it first

/// Exact number of samples of the WAV file; 0 if it cannot be read. `path` is UTF-8 on every
/// platform. Callable from several threads at once, as is the one below.
std::int64_t soundLength(const std::string& path);

/// Samples `first` to `first + count - 1` of the WAV file; those outside of it are 0. None if the
/// file cannot be read.
std::optional<std::vector<float>> pieceOf(const std::string& path, std::int64_t first,
                                          std::int64_t count);

/// The same with silence for what cannot be read.
std::vector<float> readPiece(const std::string& path, std::int64_t first, std::int64_t count);

}  // namespace analysis
