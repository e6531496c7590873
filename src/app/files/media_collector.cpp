#include "app/files/media_collector.h"

#include <QCollator>
#include <QDirIterator>
#include <QFileInfo>
#include <QSet>
#include <algorithm>

#include "app/files/file_list.h"
#include "app/files/listing.h"
#include "app/workspace.h"
#include "project/project_file.h"
#include "run/media_files.h"

namespace app {
namespace {

bool isMedia(const QFileInfo& file) { return run::looksLikeMedia(file.fileName().toStdString()); }

void sortByName(QStringList& files) {
  QCollator byName(QLocale(QLocale::English));  // the plain locale knows no numbers
  byName.setNumericMode(true);                  // clip 2 before clip 10
  std::sort(files.begin(), files.end(), byName);
}

QStringList filesIn(const QString& folder, QStringList& passedOver, const std::atomic<bool>& stop) {
  QStringList found;
  QDirIterator files(folder, QDir::Files, QDirIterator::Subdirectories);
  while (files.hasNext() && !stop) {
    files.next();
    if (isMedia(files.fileInfo())) {
      found << files.filePath();
    } else {
      passedOver << files.filePath();
    }
  }
  sortByName(found);
  return found;
}

/// The first few of these names, and how many more there are.
QString shortList(const QStringList& names) {
  constexpr qsizetype kNamed = 3;
  const QString listed = names.mid(0, kNamed).join(", ");
  const auto more = static_cast<int>(names.size() - kNamed);
  return more > 0 ? MediaCollector::tr("%1 and %n more", nullptr, more).arg(listed) : listed;
}

QString shortNames(const QStringList& paths) {
  QStringList names;
  for (const QString& path : paths) names << QFileInfo(path).fileName();
  return shortList(names);
}

/// What to say of files that are no recordings, by their names; empty if there are none. Files that
/// cameras keep beside their clips are not worth a word.
QString passedOverText(const QStringList& passedOver) {
  static const QSet<QString> kCompanions = {"thm", "xml", "bim", "cpi", "mpl", "bdm", "ppn", "smi",
                                            "lrv", "db",  "ini", "txt", "dat", "tdt", "tid", "jpg"};
  QStringList names;
  for (const QString& path : passedOver) {
    const QFileInfo file(path);
    if (!kCompanions.contains(file.suffix().toLower()) && !file.fileName().startsWith('.'))
      names << file.fileName();
  }
  if (names.isEmpty()) return {};
  return MediaCollector::tr("Not added, as no recording: %1").arg(shortList(names));
}

/// What to say of sounds that a run does not take, by their names; empty if there are none.
QString refusedText(const QStringList& files) {
  QStringList names;
  for (const QString& path : files)
    if (isRefusedSound(path)) names << QFileInfo(path).fileName();
  if (names.isEmpty()) return {};
  return MediaCollector::tr("This kind of sound file cannot be used; convert it to WAV first: %1")
      .arg(shortList(names));
}

}  // namespace

QStringList mediaFilesIn(const QStringList& paths, QStringList& passedOver,
                         const std::atomic<bool>& stop) {
  QStringList found;
  for (const QString& path : paths) {
    const QFileInfo file(path);
    if (stop) break;
    if (file.isDir()) {
      found << filesIn(path, passedOver, stop);
    } else if (isMedia(file)) {
      found << path;
    } else {
      passedOver << path;
    }
  }
  return found;
}

MediaCollector::MediaCollector(QObject* parent) : QObject(parent) { pool_.setMaxThreadCount(1); }

MediaCollector::~MediaCollector() { stop_ = true; }

void MediaCollector::add(const QList<QUrl>& urls, bool oneDevice) {
  for (const QUrl& url : urls)
    if (project::isProjectPath(url.toLocalFile().toStdString())) {
      workspace().open(url);
      return;
    }
  QStringList paths;
  for (const QUrl& url : urls) {
    if (url.isLocalFile()) paths << url.toLocalFile();
  }
  ++searches_;
  Q_EMIT busyChanged();
  pool_.start([this, paths, oneDevice] {  // the pool is waited for before this object goes
    QStringList passedOver;
    const QStringList files = mediaFilesIn(paths, passedOver, stop_);
    QMetaObject::invokeMethod(
        this, [=, this] { take(files, passedOver, oneDevice); }, Qt::QueuedConnection);
  });
}

QString MediaCollector::notesOn(const QStringList& picked) {
  QStringList others;
  for (const QString& path : picked)
    if (path != kGroupBegin && path != kGroupEnd && !isMedia(QFileInfo(path))) others << path;
  QStringList notes = {
      others.isEmpty() ? QString() : tr("Perhaps no recordings: %1").arg(shortNames(others)),
      refusedText(picked)};
  notes.removeAll(QString());
  return notes.join('\n');
}

void MediaCollector::take(const QStringList& files, const QStringList& passedOver, bool oneDevice) {
  if (!files.isEmpty()) workspace().addFiles(files, oneDevice);
  --searches_;
  Q_EMIT busyChanged();
  QStringList notes = {passedOverText(passedOver), refusedText(files)};
  notes.removeAll(QString());
  Q_EMIT finished(static_cast<int>(files.size()), notes.join('\n'));
}

}  // namespace app
