#include "analysis/landmarks.h"

namespace analysis {
namespace {

constexpr int kMostPerAnchor = 9;

bool inBinZone(const Peak& anchor, const Peak& target, const TargetZone& zone) {
  const auto anchorBin = static_cast<float>(anchor.bin);
  const auto targetBin = static_cast<float>(target.bin);
  return anchorBin - zone.bins < targetBin && targetBin < anchorBin + zone.bins;
}

Landmark landmarkOf(const Peak& anchor, const Peak& target) {
  return {static_cast<std::uint32_t>(anchor.frame),
          static_cast<std::uint16_t>(target.frame - anchor.frame),
          static_cast<std::uint8_t>(anchor.bin), static_cast<std::uint8_t>(target.bin)};
}

}  // namespace

std::vector<Landmark> pairPeaks(std::span<const Peak> peaks, const TargetZone& zone) {
  std::vector<Landmark> landmarks;
  landmarks.reserve(peaks.size() * kMostPerAnchor);  // untouched memory costs nothing
  std::size_t latest = 0;  // first peak inside the anchor's zone of time; moves on with the anchor
  for (const Peak& anchor : peaks) {
    const float end = static_cast<float>(anchor.frame) + zone.frames;
    while (static_cast<float>(peaks[latest].frame) >= end) ++latest;
    int made = 0;
    for (std::size_t i = latest; peaks[i].frame > anchor.frame && made < kMostPerAnchor; ++i) {
      if (!inBinZone(anchor, peaks[i], zone)) continue;
      landmarks.push_back(landmarkOf(anchor, peaks[i]));
      ++made;
    }
  }
  return landmarks;
}

}  // namespace analysis
