#include "analysis/frames.h"

#include <algorithm>
#include <array>
#include <vector>

#include "analysis/fft.h"

namespace analysis {
namespace {

constexpr Eigen::Index kFramesAtOnce = 128;  // 100 kB of samples, which stay in the cache
constexpr int kSilentFrames = 2;
static_assert(kFramesAtOnce % kBatch == 0 && kSilentFrames <= kBatch);

/// Hands on the frames of a piece of sound whose first frame begins at `samples`. The batch that
/// ends the recording may be a part of one.
void usePiece(FrameTransform& transform, const float* samples, Eigen::Index frames,
              std::size_t index, const UsePowers& use) {
  std::array<float, kBatch * kBins> powers;
  for (Eigen::Index frame = 0; frame < frames; frame += kBatch) {
    transform.powers(samples + frame * kHop, powers.data());
    use(index, powers.data(), static_cast<int>(std::min<Eigen::Index>(kBatch, frames - frame)));
  }
}

}  // namespace

Eigen::Index frameCount(std::int64_t samples) {
  return 2 * (samples / kFrameLength) + kSilentFrames;
}

bool forEachFrame(SampleSource& source, std::span<const int> shifts, const UsePowers& use,
                  const std::function<bool()>& stop) {
  const Eigen::Index sounding = frameCount(source.length()) - kSilentFrames;
  const int longest = std::ranges::max(shifts);
  std::vector<float> piece(kFramesAtOnce * kHop + (kFrameLength - kHop) + longest);
  FrameTransform transform;
  for (Eigen::Index first = 0; first < sounding; first += kFramesAtOnce) {
    if (stop && stop()) return false;
    source.read(first * kHop - longest, piece);
    const Eigen::Index frames = std::min(kFramesAtOnce, sounding - first);
    for (std::size_t i = 0; i < shifts.size(); ++i)
      usePiece(transform, piece.data() + (longest - shifts[i]), frames, i, use);
  }
  const std::array<float, kSilentFrames* kBins> silence = {};
  for (std::size_t i = 0; i < shifts.size(); ++i) use(i, silence.data(), kSilentFrames);
  return true;
}

}  // namespace analysis
