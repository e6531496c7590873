#include "analysis/spectrogram.h"

#include <algorithm>
#include <array>
#include <string>

namespace analysis {
namespace {

using Column = Eigen::Array<float, kBins, 1>;

// The samples from `first` on as the transform wants them: where they lie, if all are there, else
// copied into `space` with silence around.
const float* batchAt(std::span<const float> samples, std::int64_t first,
                     std::array<float, kBatchLength>& space) {
  const auto length = static_cast<std::int64_t>(samples.size());
  if (first >= 0 && first + kBatchLength <= length) return samples.data() + first;
  space.fill(0);
  const std::int64_t begin = std::clamp<std::int64_t>(first, 0, length);
  const std::int64_t end = std::clamp<std::int64_t>(first + kBatchLength, begin, length);
  std::copy(samples.begin() + begin, samples.begin() + end, space.begin() + (begin - first));
  return space.data();
}

// Squared magnitudes of all frames; returns the largest. The number of frames with sound is even,
// so the last batch may spill into the two silent frames at the end, never past them.
float framePowers(std::span<const float> samples, int shift, Spectrogram& powers) {
  const Eigen::Index sounding = 2 * (static_cast<Eigen::Index>(samples.size()) / kFrameLength);
  powers.resize(kBins, sounding + 2);
  FrameTransform transform;
  std::array<float, kBatchLength> space;
  float largest = 0;
  for (Eigen::Index frame = 0; frame < sounding; frame += kBatch) {
    transform.powers(batchAt(samples, frame * kHop - shift, space), powers.col(frame).data());
    const Eigen::Index width = std::min<Eigen::Index>(kBatch, sounding - frame);
    largest = std::max(largest, powers.middleCols(frame, width).maxCoeff());
  }
  powers.rightCols(2).setZero();
  return largest;
}

// Logarithm of the magnitudes, 120 dB below the largest at least; returns the mean.
float toLogMagnitudes(Spectrogram& powers, float largest) {
  const float floor = largest * 1e-12f;
  double sum = 0;
  for (auto frame : powers.colwise()) {
    Eigen::Map<Column> column(frame.data());
    column = 0.5f * column.max(floor).log();  // the root of the power, taken after the logarithm
    sum += column.sum();
  }
  return static_cast<float>(sum / static_cast<double>(powers.size()));
}

// A steady hum says nothing about time; onsets do.
void highPassRows(Spectrogram& s, float mean) {
  constexpr int kFramesBetweenChecks = 256;
  Column before = Column::Zero();
  Column filtered = Column::Zero();
  for (Eigen::Index frame = 0; frame < s.cols(); ++frame) {
    Eigen::Map<Column> column(s.col(frame).data());
    const Column now = column - mean;
    filtered = now - before + 0.98f * filtered;
    // In long silence the values would fade into the range where processors are slow.
    if (frame % kFramesBetweenChecks == 0) filtered = (filtered.abs() < 1e-30f).select(0, filtered);
    column = filtered;
    before = now;
  }
}

}  // namespace

Spectrogram spectrogram(std::span<const float> samples, int shift) {
  Spectrogram out;
  spectrogramInto(out, samples, shift);
  return out;
}

void spectrogramInto(Spectrogram& out, std::span<const float> samples, int shift) {
  const float largest = framePowers(samples, shift, out);
  const float mean = toLogMagnitudes(out, largest);
  highPassRows(out, mean);
}

void specgram(Spectrogram& out, const std::string& path, int* frames, float* duration, int shift,
              report::Console& console) {
  specgram(out, readSound(path), frames, duration, shift, console);
}

void specgram(Spectrogram& out, const Sound& sound, int* frames, float* duration, int shift,
              report::Console& console) {
  console.line("sf info FRAMES:" + std::to_string(sound.frames));
  if (sound.empty()) {
    console.line("prazen spektrogram");  // an empty spectrogram
    out.setZero(1, 1);
    return;
  }
  for (const char* step : {"specgram 832", "specgram 837", "specgram 892"}) console.line(step);
  spectrogramInto(out, sound.samples, shift);
  *frames = static_cast<int>(out.cols());
  *duration = sound.wholeSeconds();
}

}  // namespace analysis
