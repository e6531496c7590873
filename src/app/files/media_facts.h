#pragma once

#include <QHash>
#include <QObject>
#include <QString>
#include <QThreadPool>
#include <functional>
#include <optional>

namespace app {

/// What the list shows of a media file. What is not known is 0.
struct MediaFacts {
  bool readable = false;
  double frameRate = 0;  // frames per second; 0 for sound
  int width = 0, height = 0;
  double seconds = 0;
  QString model;      // of the camera or recorder
  bool asked = true;  // false: the library that would know is missing
};

/// Finds out about files in the background, one at a time, and remembers. GUI thread only.
class MediaFactsCache final : public QObject {
  Q_OBJECT

 public:
  /// Called in a background thread; must not throw.
  using Probe = std::function<MediaFacts(const QString& path)>;

  explicit MediaFactsCache(Probe probe, QObject* parent = nullptr);
  ~MediaFactsCache() override;

  /// What is known of `path`; none yet if its turn has not come. Asking puts it in line.
  std::optional<MediaFacts> facts(const QString& path);

 Q_SIGNALS:
  void learned(const QString& path);

 private:
  void learn(const QString& path, const MediaFacts& facts);

  Probe probe_;
  QHash<QString, std::optional<MediaFacts>> known_;
  QThreadPool pool_;
};

/// Asks the MediaInfo library, once for each file as it is. Callable from any thread.
MediaFacts probeMedia(const QString& path);

}  // namespace app
