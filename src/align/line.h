#pragma once

#include <span>
#include <vector>

namespace align {

/// The correlation of two recordings in one window of their overlap.
struct WindowCorrelation {
  double atSeconds;         // the window's middle, from the overlap's middle
  std::vector<float> lags;  // see correlate(); the middle element is the supposed offset
};

/// A straight line through the windows' delays: delay(t) = samples + slope * t. Or, where a device
/// was carried about, every window's own delay and no slope.
struct DelayLine {
  double delaySamples = 0;     // at the overlap's middle, against the supposed offset
  double slope = 0;            // samples per second; 0.008 is one part in a million
  std::vector<float> heights;  // per window: the correlation's height at the line
  double evidence = 0;         // what the windows say together; grows with their number
  double errorSamples = 0;     // standard error of delaySamples
  double slopeError = 0;       // standard error of slope; 0 = slope not measured
  std::vector<double> delays;  // per window: of the line there, or of its own
  bool varies = false;         // the delays are the windows' own
};

/// The line with the most evidence. Windows far from any peak on it count nothing, so that pauses
/// and noise do no harm; one window alone can never say much.
DelayLine bestLine(std::span<const WindowCorrelation> windows);

/// The windows' own delays where most of those that say something clearly, each for itself, are not
/// on the `straight` line; else that line. Its delay is the middle between the least and the most,
/// its error half of what lies between them.
DelayLine varyingOr(DelayLine straight, std::span<const WindowCorrelation> windows);

/// Whether one of the two recordings seems to have the other sign, as through exchanged wires: the
/// correlations reach clearly farther down than up.
bool looksInverted(std::span<const WindowCorrelation> windows);

/// How high the windows stand on the line together: evidence without a limit for each.
double heightOf(const DelayLine& line);

inline constexpr float kSupport = 5.0f;  // a window at least this high on the line supports it

}  // namespace align
