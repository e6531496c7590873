#include "analysis/spectrogram.h"

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "analysis/frames.h"
#include "analysis/level.h"
#include "analysis/logarithm.h"
#include "analysis/sound.h"

namespace analysis {
namespace {

using Column = Eigen::Array<float, kBins, 1>;

// A steady hum says nothing about time; onsets do.
class HighPass {
 public:
  explicit HighPass(float mean) : mean_(mean) {}

  // The next frame's logarithms; returns its column.
  const float* filter(const float* logs) {
    constexpr int kFramesBetweenChecks = 256;
    const Column now = Eigen::Map<const Column>(logs) - mean_;
    filtered_ = now - before_ + 0.98f * filtered_;
    // In long silence the values would fade into the range where processors are slow.
    if (frame_++ % kFramesBetweenChecks == 0)
      filtered_ = (filtered_.abs() < 1e-30f).select(0, filtered_);
    before_ = now;
    return filtered_.data();
  }

 private:
  float mean_;
  std::int64_t frame_ = 0;
  Column before_ = Column::Zero();
  Column filtered_ = Column::Zero();
};

struct Level {
  float mean, floor;
};

using Meters = std::vector<LevelMeter>;

bool measure(SampleSource& source, std::span<const int> shifts, Meters& meters,
             const std::function<bool()>& stop) {
  return forEachFrame(
      source, shifts,
      [&](std::size_t i, const float* powers, int frames) { meters[i].add(powers, frames); }, stop);
}

// The levels of `shifts`; none when `stop` ended it.
std::vector<Level> measuredLevels(SampleSource& source, std::span<const int> shifts,
                                  const std::function<bool()>& stop) {
  Meters meters(shifts.size(), LevelMeter(kFaintAtFullScale));
  if (!measure(source, shifts, meters, stop)) return {};
  if (!std::ranges::all_of(meters, &LevelMeter::settled)) {  // beyond full scale
    for (LevelMeter& meter : meters) meter = LevelMeter(meter.floor());
    if (!measure(source, shifts, meters, stop)) return {};
  }
  std::vector<Level> levels;
  for (const LevelMeter& meter : meters) levels.push_back({meter.mean(), meter.floor()});
  return levels;
}

// The same for all delays. A few milliseconds later a long recording is as loud as before: there
// the middle one stands for all, which saves a third of the transforms.
std::vector<Level> levelsOf(SampleSource& source, std::span<const int> shifts,
                            const std::function<bool()>& stop) {
  constexpr std::int64_t kLong = 5 * 60 * kSampleRate;
  if (source.length() < kLong) return measuredLevels(source, shifts, stop);
  const auto levels = measuredLevels(source, shifts.subspan(shifts.size() / 2, 1), stop);
  return levels.empty() ? levels : std::vector(shifts.size(), levels.front());
}

void fill(Spectrogram& out, SampleSource& source, int shift) {
  out.resize(kBins, frameCount(source.length()));
  Eigen::Index frame = 0;
  forEachColumn(source, std::span(&shift, 1), [&](std::size_t, const float* column) {
    out.col(frame++) = Eigen::Map<const Column>(column);
  });
}

}  // namespace

bool forEachColumn(SampleSource& source, std::span<const int> shifts, const UseColumn& use,
                   const std::function<bool()>& stop) {
  const std::vector<Level> levels = levelsOf(source, shifts, stop);
  if (levels.empty()) return false;
  std::vector<HighPass> filters;
  for (const Level& level : levels) filters.emplace_back(level.mean);
  std::array<float, kBatch * kBins> logs;
  const auto useFrames = [&](std::size_t i, const float* powers, int frames) {
    std::copy_n(powers, frames * kBins, logs.begin());
    toLogMagnitudes(std::span(logs).first(static_cast<std::size_t>(frames * kBins)),
                    levels[i].floor);
    for (int frame = 0; frame < frames; ++frame) use(i, filters[i].filter(&logs[frame * kBins]));
  };
  return forEachFrame(source, shifts, useFrames, stop);
}

Spectrogram spectrogram(std::span<const float> samples, int shift) {
  SamplesInMemory source(samples);
  Spectrogram out;
  fill(out, source, shift);
  return out;
}

void specgram(Spectrogram& out, const std::string& path, int* frames, float* duration, int shift,
              report::Console& console) {
  SamplesInFile source(path);
  logSpecgram(source, console);
  if (source.empty()) {
    out.setZero(1, 1);
    return;
  }
  fill(out, source, shift);
  *frames = static_cast<int>(out.cols());
  *duration = source.wholeSeconds();
}

void logSpecgram(const SamplesInFile& source, report::Console& console) {
  console.line("sf info FRAMES:" + std::to_string(source.length()));
  if (source.empty()) return console.line("prazen spektrogram");  // an empty spectrogram
  for (const char* step : {"specgram 832", "specgram 837", "specgram 892"}) console.line(step);
}

}  // namespace analysis
