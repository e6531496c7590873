#include "analysis/hearing.h"

#include <utility>

#include "analysis/line.h"
#include "analysis/peaks.h"

namespace analysis {
namespace {

// About 50 peaks a second; a sound of less than a second has room for 5 seconds' worth.
std::int64_t peakCapacity(float seconds) {
  return static_cast<std::int64_t>((seconds == 0 ? 5.0f : seconds) * 50);
}

}  // namespace

std::vector<Landmark> landmarksOf(const Spectrogram& s, float seconds,
                                  const HearingSettings& settings) {
  const std::vector<Peak> forward = forwardPeaks(s, settings.decay, peakCapacity(seconds));
  const std::vector<Peak> kept = backwardPeaks(s, forward, settings.decay);
  std::vector<Landmark> landmarks = pairPeaks(kept, settings.zone);
  if (landmarks.size() < 2) landmarks.clear();
  return landmarks;
}

FileHearing::FileHearing(std::string path, HearingSettings settings, report::Console& console)
    : path_(std::move(path)), sound_(readSound(path_)), settings_(settings), console_(console) {}

std::vector<Landmark> FileHearing::landmarks(int shift, float& duration) {
  int frames = 0;
  specgram(spectrogram_, sound_, &frames, &duration, shift, console_);
  console_.line("posle specgram");  // after specgram
  if (spectrogram_.rows() < 2) return {};
  console_.line(line("filename:", path_, "b=", duration / 70000, "  duration:", duration,
                     "  A_DEC=:", settings_.decay, " ----", "specrgram:", spectrogram_.rows(),
                     "  -- ", spectrogram_.cols()));
  std::vector<Landmark> landmarks = landmarksOf(spectrogram_, duration, settings_);
  if (landmarks.empty()) console_.line("LL<2 pred return..");
  return landmarks;
}

}  // namespace analysis
