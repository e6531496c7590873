#pragma once

#include <Eigen/Core>
#include <span>
#include <string>

#include "analysis/fft.h"
#include "analysis/sound.h"
#include "report/console.h"

namespace analysis {

/// What a recording sounds like over time: kBins rows by one column per frame of 24 ms. Natural
/// log of the magnitude, mean removed and filtered along time so that onsets stand out.
using Spectrogram = Eigen::MatrixXf;

/// Analyses `samples` (mono, kSampleRate, full scale 1.0), delayed by `shift` samples so that an
/// onset between two frames is seen by another shift. Two frames for every 384 samples and two
/// silent ones; sound without any level gives no numbers (NaN). Pure: callable from any thread.
Spectrogram spectrogram(std::span<const float> samples, int shift);

/// The same into the memory that `out` holds, if it has the right size.
void spectrogramInto(Spectrogram& out, std::span<const float> samples, int shift);

/// The spectrogram of a WAV file with its log lines. Sets `out`, the number of its columns and the
/// duration in whole seconds; a file without sound sets `out` to 1 x 1 and leaves the others.
void specgram(Spectrogram& out, const std::string& path, int* frames, float* duration, int shift,
              report::Console& console);

/// The same for a sound that was read before.
void specgram(Spectrogram& out, const Sound& sound, int* frames, float* duration, int shift,
              report::Console& console);

}  // namespace analysis
