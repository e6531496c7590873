#pragma once

#include <QList>
#include <QMetaType>
#include <string>

namespace app {

/// How loud a sound is over time, for drawing: one peak per 1/100 s, 0 to 255 of the loudest one.
/// Cheap to copy.
struct Waveform {
  static constexpr int kPeaksPerSecond = 100;
  QList<quint8> peaks;
};

/// Reads the sound file at `path` (UTF-8) block by block; empty if it cannot be read. Callable from
/// any thread.
Waveform readWaveform(const std::string& path);

}  // namespace app

Q_DECLARE_METATYPE(app::Waveform)
