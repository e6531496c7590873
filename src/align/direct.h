#pragma once

#include <span>
#include <vector>

#include "align/line.h"

namespace align {

/// A peak of the windows' correlations laid over each other along the line.
struct ResponsePeak {
  int lag;       // samples from the line
  float height;  // of the highest peak, which has 1
};

/// The line's own peak first, then those nearly as high within 35 ms: echoes, or the direct sound
/// where an echo is louder. Most pairs have none of them.
std::vector<ResponsePeak> responsePeaks(std::span<const WindowCorrelation> windows,
                                        const DelayLine& line);

/// How much a recording repeats itself at every lag from 0 to 35 ms, 0 to 1: its room's echoes.
/// `lags`: correlations of pieces of the recording with themselves.
std::vector<float> selfEchoes(std::span<const std::vector<float>> lags);

/// Where the direct sound stands against the line.
struct DirectSound {
  int shiftSamples = 0;     // to be added to the line's delay
  double doubtSamples = 0;  // how far off it may be where the echoes do not tell
};

/// An echo comes after the direct sound: one of the first recording (a) stands at a later lag, one
/// of the second (b) at an earlier one. The peak from which the recordings' own echoes explain the
/// others is the direct sound.
DirectSound directSound(std::span<const ResponsePeak> peaks, std::span<const float> echoesOfA,
                        std::span<const float> echoesOfB);

}  // namespace align
