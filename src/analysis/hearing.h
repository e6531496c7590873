#pragma once

#include <functional>
#include <span>
#include <string>
#include <vector>

#include "analysis/landmarks.h"
#include "analysis/sample_source.h"
#include "report/console.h"

namespace analysis {

struct HearingSettings {
  float decay;  // of the peaks' envelope from frame to frame
  TargetZone zone = {};
};

/// The landmarks of one recording heard with each of `shifts`, in the order in which they are
/// found; none where there is only one. The memory grows with the landmarks and not with the sound.
/// None at all when `stop`, polled every few seconds of sound, ended it. Callable from any thread.
std::vector<std::vector<Landmark>> landmarksOf(SampleSource& source, std::span<const int> shifts,
                                               const HearingSettings& settings,
                                               const std::function<bool()>& stop = {});

/// The same for the WAV file at `path`, with its log lines; no landmarks for a file without sound.
/// `duration` receives whole seconds and stays as it is for a file without sound.
std::vector<std::vector<Landmark>> landmarksOfFile(const std::string& path,
                                                   std::span<const int> shifts, float& duration,
                                                   const HearingSettings& settings,
                                                   report::Console& console,
                                                   const std::function<bool()>& stop = {});

}  // namespace analysis
