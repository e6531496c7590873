#pragma once

#include <QList>
#include <QMetaType>
#include <string>

namespace app {

/// How loud a sound is over time, for drawing: peaks of 0 to 255 of the loudest one. Cheap to copy.
struct Waveform {
  static constexpr int kPeaksPerSecond = 100;
  static constexpr int kFinePerCoarse = 100;
  QList<quint8> peaks;   // one per 1/100 s
  QList<quint8> coarse;  // the highest of every hundred of them, for wide views
  float loudest = 0;     // of full scale 1

  /// The highest peak from one moment to another, in seconds; what lies outside counts as its end.
  int loudestBetween(double fromSeconds, double toSeconds) const;
};

/// Reads the sound file at `path` (UTF-8) block by block; empty if it cannot be read. Callable from
/// any thread.
Waveform readWaveform(const std::string& path);

}  // namespace app

Q_DECLARE_METATYPE(app::Waveform)
