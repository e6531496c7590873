#pragma once

#include <string>
#include <vector>

#include "analysis/landmarks.h"
#include "analysis/sound.h"
#include "analysis/spectrogram.h"
#include "report/console.h"

namespace analysis {

struct HearingSettings {
  float decay;  // of the peaks' envelope from frame to frame
  TargetZone zone = {};
};

/// The landmarks of one spectrogram in the order in which they are found; none if there is only
/// one. `seconds`: whole seconds of the recording, of which the number of peaks depends.
std::vector<Landmark> landmarksOf(const Spectrogram& s, float seconds,
                                  const HearingSettings& settings);

/// One file that is read once and heard with several delays, with its log lines. Not for several
/// threads at once.
class FileHearing {
 public:
  FileHearing(std::string path, HearingSettings settings, report::Console& console);

  /// The landmarks of the file delayed by `shift` samples; none for a file without sound.
  /// `duration` receives whole seconds and stays as it is for a file without sound.
  std::vector<Landmark> landmarks(int shift, float& duration);

 private:
  const std::string path_;
  const Sound sound_;
  const HearingSettings settings_;
  report::Console& console_;
  Spectrogram spectrogram_;  // memory that all delays use
};

}  // namespace analysis
