#pragma once

#include <Eigen/Core>
#include <functional>
#include <span>
#include <string>

#include "analysis/fft.h"
#include "analysis/sample_source.h"
#include "report/console.h"

namespace analysis {

/// What a recording sounds like over time: kBins rows by one column per frame of 24 ms. Natural
/// log of the magnitude, mean removed and filtered along time so that onsets stand out.
using Spectrogram = Eigen::MatrixXf;

/// Takes the next column (kBins values) of the spectrogram at `index`.
using UseColumn = std::function<void(std::size_t index, const float* column)>;

/// Works out one spectrogram for each of `shifts`, column by column: the sound is delayed by as
/// many samples, so that an onset between two frames is seen by another shift. All columns of one
/// spectrogram come in their order, those of different ones by turns. Sound without any level
/// gives no numbers (NaN). `source` is read twice and no spectrogram is kept: the memory does not
/// depend on its length. False when `stop`, polled every few seconds of sound, ended it.
bool forEachColumn(SampleSource& source, std::span<const int> shifts, const UseColumn& use,
                   const std::function<bool()>& stop = {});

/// One whole spectrogram of `samples` (mono, kSampleRate, full scale 1.0). Pure: callable from any
/// thread.
Spectrogram spectrogram(std::span<const float> samples, int shift);

/// The spectrogram of a WAV file with its log lines. Sets `out`, the number of its columns and the
/// duration in whole seconds; a file without sound sets `out` to 1 x 1 and leaves the others.
void specgram(Spectrogram& out, const std::string& path, int* frames, float* duration, int shift,
              report::Console& console);

/// The log lines of one spectrogram of `source`.
void logSpecgram(const SamplesInFile& source, report::Console& console);

}  // namespace analysis
