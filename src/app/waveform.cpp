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

QList<quint8> scaledToLoudest(const std::vector<float>& peaks) {
  const float top = peaks.empty() ? 0 : *std::max_element(peaks.begin(), peaks.end());
  QList<quint8> scaled;
  scaled.reserve(static_cast<qsizetype>(peaks.size()));
  for (const float peak : peaks) {
    scaled.append(static_cast<quint8>(top > 0 ? std::lround(peak / top * 255) : 0));
  }
  return scaled;
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
  return {scaledToLoudest(peaks)};
}

}  // namespace app
