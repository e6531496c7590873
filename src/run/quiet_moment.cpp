#include "run/quiet_moment.h"

#include <algorithm>
#include <cstdint>
#include <vector>

#include "analysis/sound.h"

namespace run {

double quietMoment(const std::string& path, double seconds) {
  constexpr double kReach = 2;
  if (path.empty()) return seconds;
  constexpr std::int64_t kPiece = analysis::kSampleRate / 20;
  const auto first = static_cast<std::int64_t>((seconds - kReach) * analysis::kSampleRate);
  const auto count = static_cast<std::int64_t>(2 * kReach * analysis::kSampleRate);
  const std::vector<float> samples = analysis::readPiece(path, first, count);
  double best = -1, quietest = 0;
  for (std::int64_t at = 0; at + kPiece <= std::ssize(samples); at += kPiece) {
    double energy = 0;
    for (std::int64_t i = at; i < at + kPiece; ++i) energy += double(samples[i]) * samples[i];
    if (best < 0 || energy < quietest) {
      quietest = energy;
      best = double(first + at + kPiece / 2) / analysis::kSampleRate;
    }
  }
  return best < 0 ? seconds : best;
}

}  // namespace run
