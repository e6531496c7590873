#include "run/sound_level.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "analysis/sound.h"

namespace run {
namespace {

/// Calls `use` with one piece of samples after the other, longer and longer ones, while it returns
/// true. Mostly the first few seconds decide.
template <typename Use>
bool forEachPiece(const std::string& sound, Use use) {
  constexpr std::int64_t kFirst = 4 * analysis::kSampleRate, kLongest = 64 * analysis::kSampleRate;
  const std::int64_t samples = analysis::soundLength(sound);
  std::int64_t length = kFirst;
  for (std::int64_t at = 0; at < samples; at += length, length = std::min(kLongest, 2 * length))
    if (!use(analysis::readPiece(sound, at, std::min(length, samples - at)))) return false;
  return true;
}

}  // namespace

bool isQuieterThan(const std::string& sound, float limit) {
  return forEachPiece(sound, [&](const std::vector<float>& piece) {
    return std::ranges::all_of(piece, [&](float value) { return std::abs(value) <= limit; });
  });
}

bool isSilent(const std::string& sound) { return isQuieterThan(sound, 2e-4f); }

double levelOf(const std::string& sound) {
  double power = 0, count = 0;
  forEachPiece(sound, [&](const std::vector<float>& piece) {
    for (const float value : piece) power += double(value) * value;
    count += double(piece.size());
    return true;
  });
  return count > 0 ? std::sqrt(power / count) : 0;
}

}  // namespace run
