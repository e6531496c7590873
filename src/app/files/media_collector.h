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
/// order of the folders' names. Lists what it passes over in `passedOver`. Stops early when
/// `stop` is set. Callable from any thread.
QStringList mediaFilesIn(const QStringList& paths, QStringList& passedOver,
                         const std::atomic<bool>& stop);

/// Adds what is dropped on the window to the workspace's project. Folders are searched in the
/// background, so that one with many thousands of files does not hold up the window.
class MediaCollector : public QObject {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(bool busy READ busy NOTIFY busyChanged)

 public:
  explicit MediaCollector(QObject* parent = nullptr);
  ~MediaCollector() override;

  bool busy() const { return searches_ > 0; }
  /// Opens the first project among `urls`; without one, adds the media files among them;
  /// `oneDevice`: all of them are of one.
  Q_INVOKABLE void add(const QList<QUrl>& urls, bool oneDevice);
  /// What to say of files that were picked one by one, and are on the list whatever they are:
  /// which are perhaps no recordings, and which a run will refuse. Mostly empty.
  Q_INVOKABLE static QString notesOn(const QStringList& picked);

 Q_SIGNALS:
  void busyChanged();
  /// A search has ended: `added` files were found; `notes` says in words which others were no
  /// recordings, and which of them a run will refuse. It is mostly empty.
  void finished(int added, const QString& notes);

 private:
  void take(const QStringList& files, const QStringList& passedOver, bool oneDevice);

  std::atomic<bool> stop_ = false;
  int searches_ = 0;
  QThreadPool pool_;
};

}  // namespace app
