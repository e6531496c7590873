#include "app/waveform.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "analysis/sound_file.h"

namespace app {
namespace {

float loudest(const std::vector<float>& samples, sf_count_t count) {
  float peak = 0;
  for (sf_count_t i = 0; i < count; ++i) peak = std::max(peak, std::abs(samples[i]));
  return peak;
}

Waveform scaledToLoudest(const std::vector<float>& peaks) {
  Waveform waveform;
  waveform.loudest = peaks.empty() ? 0 : *std::max_element(peaks.begin(), peaks.end());
  waveform.peaks.reserve(static_cast<qsizetype>(peaks.size()));
  for (const float peak : peaks) {
    const float share = waveform.loudest > 0 ? peak / waveform.loudest : 0;
    const auto scaled = static_cast<quint8>(std::lround(share * 255));
    if (waveform.peaks.size() % Waveform::kFinePerCoarse == 0) waveform.coarse.append(0);
    waveform.coarse.back() = std::max(waveform.coarse.back(), scaled);
    waveform.peaks.append(scaled);
  }
  return waveform;
}

int loudestIn(const QList<quint8>& peaks, double from, double to) {
  if (peaks.isEmpty()) return 0;
  const auto at = [&peaks](double place) {
    return std::clamp<qsizetype>(std::llround(std::floor(place)), 0, peaks.size() - 1);
  };
  return *std::max_element(peaks.constData() + at(from), peaks.constData() + at(to) + 1);
}

}  // namespace

Waveform readWaveform(const std::string& path) {
  SF_INFO info = {};
  const analysis::SoundFile file = analysis::openSoundFile(path, info);
  if (!file || info.samplerate < Waveform::kPeaksPerSecond) return {};
  const sf_count_t frames = info.samplerate / Waveform::kPeaksPerSecond;
  std::vector<float> block(static_cast<std::size_t>(frames) * info.channels);
  std::vector<float> peaks;
  while (const sf_count_t read = sf_readf_float(file.get(), block.data(), frames)) {
    peaks.push_back(loudest(block, read * info.channels));
  }
  return scaledToLoudest(peaks);
}

int Waveform::loudestBetween(double fromSeconds, double toSeconds) const {
  const double from = fromSeconds * kPeaksPerSecond, to = toSeconds * kPeaksPerSecond;
  if (to - from < 4 * kFinePerCoarse) return loudestIn(peaks, from, to);
  return loudestIn(coarse, from / kFinePerCoarse, to / kFinePerCoarse);
}

}  // namespace app
