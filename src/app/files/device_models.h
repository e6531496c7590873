#pragma once

#include <QHash>
#include <QString>
#include <QStringList>
#include <QThreadPool>
#include <atomic>
#include <functional>

namespace app {

/// Asks media files in the background which camera or recorder made them. GUI thread only.
class DeviceModels {
 public:
  /// The model that wrote the file at `path`; empty if it does not tell. Called in a background
  /// thread; must not throw.
  using Ask = std::function<QString(const QString& path)>;
  /// Models by path, of the files that tell.
  using Told = std::function<void(const QHash<QString, QString>& models)>;

  explicit DeviceModels(Ask ask);

  /// Calls `told` once, in the thread of `context` and while that lives.
  void learn(const QStringList& files, QObject* context, Told told);
  /// Puts another way of asking in place of the files' own, for tests.
  void setAsk(Ask ask) { ask_ = std::move(ask); }
  /// Ends what is still going on, without telling; no more is learned.
  void stop();

 private:
  Ask ask_;
  std::atomic<bool> stop_ = false;
  QThreadPool pool_;
};

/// The program's one; never destroyed, stopped when the application object goes.
DeviceModels& deviceModels();

}  // namespace app
