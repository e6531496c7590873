#pragma once

#include <span>

#include "align/evidence.h"
#include "align/line.h"

namespace align {

inline constexpr double kSameOffset = 0.05;  // seconds; echoes and interpolation stay below

/// Seconds by which offsets may differ that mean the same, with what two clocks may add over the
/// longest recording concerned.
inline double offsetTolerance(double longestSeconds) {
  return kSameOffset + 120e-6 * longestSeconds;
}

/// What the sound itself says about one supposed offset of a pair of recordings.
struct Alignment {
  int first = 0, second = 0;  // file indices
  double offsetSeconds = 0;   // of second's start on first's clock, right at the overlap's middle
  double driftPpm = 0;        // how much faster second's clock runs than first's
  double driftError = 0;      // standard error of driftPpm; 0 = not measured
  double errorSeconds = 0;    // standard error of offsetSeconds
  double overlapSeconds = 0;
  double strength = 0;       // median height of the windows that support it
  double evidence = 0;       // of all windows together, see DelayLine
  double distinct = 0;       // median of those windows' height over their next best elsewhere
  int support = 0;           // windows that support it ...
  int windows = 0;           // ... of so many
  double spreadSeconds = 0;  // from the first supporting window to the last
  double logOdds = 0;        // of all windows together, see Evidence; 0 = the line said enough
  bool varies = false;       // a device was carried about: errorSeconds is how far the sound's way
                             // moves it to either side
  bool copy = false;         // the samples are the same: two files of one microphone's sound
};

/// Fills in what `line` and the windows it runs through say: strength, evidence, distinction,
/// support and spread.
void summarise(Alignment& alignment, const DelayLine& line,
               std::span<const WindowCorrelation> windows);

/// Fills in the same for what is too faint, or too spread by its rooms, for single windows to show.
void summarise(Alignment& alignment, const Evidence& evidence, std::size_t windows);

/// Log odds past what chance gives. Unrelated music of one style reaches 34 in sets of a thousand
/// clips.
inline constexpr double kBeyondChance = 40;

/// Whether so much evidence, so spread over time, is past what chance gives.
bool believed(const Alignment& alignment);

/// Strength that something repeated rarely has, and chance never.
inline constexpr double kPastRepetition = 18;

/// Whether three in four windows or more support it.
bool nearlyEverywhere(const Alignment& alignment);

/// The same with first and second exchanged.
Alignment mirrored(Alignment alignment);

/// Whether two alignments of one pair, in the same order, are one to within what echoes and drift
/// move them.
bool sameOffset(const Alignment& a, const Alignment& b);

/// How much an alignment weighs against others: the longer it fits, and the better, the more.
double weightOf(const Alignment& alignment);

}  // namespace align
