#include "analysis/hearing.h"

#include <utility>

#include "analysis/frames.h"
#include "analysis/line.h"
#include "analysis/peaks.h"
#include "analysis/sound.h"
#include "analysis/spectrogram.h"

namespace analysis {
namespace {

// About 50 peaks a second; a sound of less than a second has room for 5 seconds' worth.
std::int64_t peakCapacity(std::int64_t samples) {
  const auto seconds = static_cast<float>(samples / kSampleRate);
  return static_cast<std::int64_t>((seconds == 0 ? 5.0f : seconds) * 50);
}

std::vector<Landmark> pairsOf(const ForwardPeaks& forward, Eigen::Index frames,
                              const HearingSettings& settings) {
  const std::vector<Peak> kept =
      backwardPeaks(frames, forward.last().data(), forward.peaks(), settings.decay);
  std::vector<Landmark> landmarks = pairPeaks(kept, settings.zone);
  if (landmarks.size() < 2) landmarks.clear();
  return landmarks;
}

void logDelay(const SamplesInFile& source, const std::string& path, float decay, bool found,
              report::Console& console) {
  logSpecgram(source, console);
  console.line("posle specgram");  // after specgram
  if (source.empty()) return;
  const float duration = source.wholeSeconds();
  console.line(line("filename:", path, "b=", duration / 70000, "  duration:", duration, "  A_DEC=:",
                    decay, " ----", "specrgram:", kBins, "  -- ", frameCount(source.length())));
  if (!found) console.line("LL<2 pred return..");  // before the return
}

}  // namespace

std::vector<std::vector<Landmark>> landmarksOf(SampleSource& source, std::span<const int> shifts,
                                               const HearingSettings& settings,
                                               const std::function<bool()>& stop) {
  const Eigen::Index frames = frameCount(source.length());
  std::vector<ForwardPeaks> forward(
      shifts.size(), ForwardPeaks(frames, settings.decay, peakCapacity(source.length())));
  const auto use = [&](std::size_t i, const float* column) { forward[i].add(column); };
  if (!forEachColumn(source, shifts, use, stop)) return {};
  std::vector<std::vector<Landmark>> landmarks;
  for (ForwardPeaks& peaks : forward) {
    const ForwardPeaks heard = std::move(peaks);  // gone before those of the next are paired
    landmarks.push_back(pairsOf(heard, frames, settings));
  }
  return landmarks;
}

std::vector<std::vector<Landmark>> landmarksOfFile(const std::string& path,
                                                   std::span<const int> shifts, float& duration,
                                                   const HearingSettings& settings,
                                                   report::Console& console,
                                                   const std::function<bool()>& stop) {
  SamplesInFile source(path);
  std::vector<std::vector<Landmark>> landmarks(shifts.size());
  if (!source.empty()) {
    landmarks = landmarksOf(source, shifts, settings, stop);
    duration = source.wholeSeconds();
  }
  for (const std::vector<Landmark>& delay : landmarks)
    logDelay(source, path, settings.decay, !delay.empty(), console);
  return landmarks;
}

}  // namespace analysis
