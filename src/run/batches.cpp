#include "run/batches.h"

#include <algorithm>
#include <functional>
#include <utility>

namespace run {
namespace {

// One ffmpeg with several inputs hands every packet from thread to thread, which from about 80 s
// of AAC on costs more than starting one for each.
constexpr double kShortSeconds = 75;
constexpr int kMostInBatch = 8;  // a run that is cancelled, or a batch that fails, loses little

using Batch = std::vector<int>;

bool isShort(const MediaProperties& media) {
  const double seconds = media.facts.lengthSeconds;
  return media.opened && media.facts.sounds.size() == 1 && seconds > 0 && seconds < kShortSeconds;
}

double lengthOf(const Batch& batch, std::span<const MediaProperties> media) {
  double seconds = 0;
  for (const int i : batch) seconds += media[i].facts.lengthSeconds;
  return seconds;
}

}  // namespace

std::vector<Batch> batchesOf(std::span<const MediaProperties> media, int threads) {
  const int shorts = static_cast<int>(std::ranges::count_if(media, isShort));
  const int most = std::clamp((shorts + threads - 1) / threads, 1, kMostInBatch);
  std::vector<Batch> batches;
  Batch open;
  for (int i = 0; i < std::ssize(media); ++i) {
    if (!isShort(media[i])) {
      batches.push_back({i});
      continue;
    }
    open.push_back(i);
    if (std::ssize(open) < most) continue;
    batches.push_back(std::exchange(open, {}));
  }
  if (!open.empty()) batches.push_back(open);
  std::ranges::stable_sort(batches, std::greater{},
                           [&](const Batch& batch) { return lengthOf(batch, media); });
  return batches;
}

}  // namespace run
