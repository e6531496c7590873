#include "analysis/spectrogram.h"

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "analysis/frames.h"
#include "analysis/level.h"
#include "analysis/logarithm.h"

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

using Meters = std::vector<LevelMeter>;

bool measure(SampleSource& source, std::span<const int> shifts, Meters& meters,
             const std::function<bool()>& stop) {
  return forEachFrame(
      source, shifts,
      [&](std::size_t i, const float* powers, int frames) { meters[i].add(powers, frames); }, stop);
}

// The levels of all delays; none when `stop` ended it.
Meters levelsOf(SampleSource& source, std::span<const int> shifts,
                const std::function<bool()>& stop) {
  Meters meters(shifts.size(), LevelMeter(kFaintAtFullScale));
  if (!measure(source, shifts, meters, stop)) return {};
  if (std::ranges::all_of(meters, &LevelMeter::settled)) return meters;
  Meters again;  // beyond full scale
  for (const LevelMeter& meter : meters) again.emplace_back(meter.floor());
  return measure(source, shifts, again, stop) ? again : Meters();
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
  const Meters levels = levelsOf(source, shifts, stop);
  if (levels.empty()) return false;
  std::vector<HighPass> filters;
  for (const LevelMeter& level : levels) filters.emplace_back(level.mean());
  std::vector<float> floors;
  for (const LevelMeter& level : levels) floors.push_back(level.floor());
  std::array<float, kBatch * kBins> logs;
  const auto useFrames = [&](std::size_t i, const float* powers, int frames) {
    std::copy_n(powers, frames * kBins, logs.begin());
    toLogMagnitudes(std::span(logs).first(static_cast<std::size_t>(frames * kBins)), floors[i]);
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
