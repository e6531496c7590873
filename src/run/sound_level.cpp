#include "run/sound_level.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "analysis/sound.h"

namespace run {
namespace {

/// Calls `use` with a minute of samples after the other while it returns true.
template <typename Use>
bool forEachMinute(const std::string& sound, Use use) {
  constexpr std::int64_t kMinute = 60 * analysis::kSampleRate;
  const std::int64_t samples = analysis::soundLength(sound);
  for (std::int64_t first = 0; first < samples; first += kMinute)
    if (!use(analysis::readPiece(sound, first, std::min(kMinute, samples - first)))) return false;
  return true;
}

}  // namespace

bool isQuieterThan(const std::string& sound, float limit) {
  return forEachMinute(sound, [&](const std::vector<float>& piece) {
    return std::ranges::all_of(piece, [&](float value) { return std::abs(value) <= limit; });
  });
}

bool isSilent(const std::string& sound) { return isQuieterThan(sound, 2e-4f); }

double levelOf(const std::string& sound) {
  double power = 0, count = 0;
  forEachMinute(sound, [&](const std::vector<float>& piece) {
    for (const float value : piece) power += double(value) * value;
    count += double(piece.size());
    return true;
  });
  return count > 0 ? std::sqrt(power / count) : 0;
}

}  // namespace run
