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
  const auto at = [](double moment) {
    return static_cast<std::int64_t>(std::max(0.0, moment) * analysis::kSampleRate);
  };
  const std::int64_t first = at(seconds - kReach);
  const std::int64_t count = std::min(at(seconds + kReach), analysis::soundLength(path)) - first;
  if (count < kPiece) return seconds;
  const std::vector<float> samples = analysis::readPiece(path, first, count);
  double best = -1, quietest = 0;
  for (std::int64_t from = 0; from + kPiece <= std::ssize(samples); from += kPiece) {
    double energy = 0;
    for (std::int64_t i = from; i < from + kPiece; ++i) energy += double(samples[i]) * samples[i];
    if (best < 0 || energy < quietest) {
      quietest = energy;
      best = double(first + from + kPiece / 2) / analysis::kSampleRate;
    }
  }
  return best < 0 ? seconds : best;
}

}  // namespace run
