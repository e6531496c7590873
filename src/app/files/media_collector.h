#pragma once

#include <QList>
#include <QObject>
#include <QQmlEngine>
#include <QStringList>
#include <QThreadPool>
#include <QUrl>
#include <atomic>

namespace app {

/// The media files among `paths`: files as they are named, folders with all that is in them, in the
/// order of the folders' names. Counts what it passes over in `passedOver`. Stops early when
/// `stop` is set. Callable from any thread.
QStringList mediaFilesIn(const QStringList& paths, int& passedOver, const std::atomic<bool>& stop);

/// Adds what is dropped on the window to the file list. Folders are searched in the background, so
/// that one with many thousands of files does not hold up the window.
class MediaCollector : public QObject {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(bool busy READ busy NOTIFY busyChanged)

 public:
  explicit MediaCollector(QObject* parent = nullptr);
  ~MediaCollector() override;

  bool busy() const { return searches_ > 0; }
  /// Adds the media files among `urls`; files of one device are put between the marker lines.
  Q_INVOKABLE void add(const QList<QUrl>& urls, bool oneDevice);

 Q_SIGNALS:
  void busyChanged();
  /// A search has ended: `added` files are on the list now, `passedOver` were no media files.
  void finished(int added, int passedOver);

 private:
  void take(const QStringList& files, int passedOver, bool oneDevice);

  std::atomic<bool> stop_ = false;
  int searches_ = 0;
  QThreadPool pool_;
};

}  // namespace app
