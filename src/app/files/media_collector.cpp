#include "app/files/media_collector.h"

#include <QCollator>
#include <QDirIterator>
#include <QFileInfo>
#include <algorithm>

#include "app/files/file_list.h"
#include "run/media_files.h"

namespace app {
namespace {

bool isMedia(const QFileInfo& file) { return run::looksLikeMedia(file.fileName().toStdString()); }

void sortByName(QStringList& files) {
  QCollator byName(QLocale(QLocale::English));  // the plain locale knows no numbers
  byName.setNumericMode(true);                  // clip 2 before clip 10
  std::sort(files.begin(), files.end(), byName);
}

QStringList filesIn(const QString& folder, int& passedOver, const std::atomic<bool>& stop) {
  QStringList found;
  QDirIterator files(folder, QDir::Files, QDirIterator::Subdirectories);
  while (files.hasNext() && !stop) {
    files.next();
    if (isMedia(files.fileInfo())) {
      found << files.filePath();
    } else {
      ++passedOver;
    }
  }
  sortByName(found);
  return found;
}

}  // namespace

QStringList mediaFilesIn(const QStringList& paths, int& passedOver, const std::atomic<bool>& stop) {
  QStringList found;
  for (const QString& path : paths) {
    const QFileInfo file(path);
    if (stop) break;
    if (file.isDir()) {
      found << filesIn(path, passedOver, stop);
    } else if (isMedia(file)) {
      found << path;
    } else {
      ++passedOver;
    }
  }
  return found;
}

MediaCollector::MediaCollector(QObject* parent) : QObject(parent) { pool_.setMaxThreadCount(1); }

MediaCollector::~MediaCollector() { stop_ = true; }

void MediaCollector::add(const QList<QUrl>& urls, bool oneDevice) {
  QStringList paths;
  for (const QUrl& url : urls) {
    if (url.isLocalFile()) paths << url.toLocalFile();
  }
  ++searches_;
  Q_EMIT busyChanged();
  pool_.start([this, paths, oneDevice] {  // the pool is waited for before this object goes
    int passedOver = 0;
    const QStringList files = mediaFilesIn(paths, passedOver, stop_);
    QMetaObject::invokeMethod(
        this, [=, this] { take(files, passedOver, oneDevice); }, Qt::QueuedConnection);
  });
}

void MediaCollector::take(const QStringList& files, int passedOver, bool oneDevice) {
  const bool group = oneDevice && !files.isEmpty();
  if (group) fileModel.addEntry(kGroupBegin);
  for (const QString& file : files) fileModel.addEntry(file);
  if (group) fileModel.addEntry(kGroupEnd);
  --searches_;
  Q_EMIT busyChanged();
  Q_EMIT finished(static_cast<int>(files.size()), passedOver);
}

}  // namespace app
