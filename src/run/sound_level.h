#pragma once

#include <string>

namespace run {

/// A peak (full scale 1) 40 dB below full scale: of a quieter sound the file's other tracks are
/// tried.
inline constexpr float kNearlySilent = 0.01f;

/// Whether no sample of a converted sound is louder than `limit` (full scale 1). Reads only until
/// one is.
bool isQuieterThan(const std::string& sound, float limit);

/// Whether there is nothing but what a muted input gives: a few steps of 16 bits.
bool isSilent(const std::string& sound);

/// The root of the samples' mean square; 0 for a sound that cannot be read.
double levelOf(const std::string& sound);

}  // namespace run
