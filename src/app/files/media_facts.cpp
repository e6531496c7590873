#include "app/files/media_facts.h"

#include <QDateTime>
#include <QFileInfo>
#include <QMutex>
#include <algorithm>

#include "run/media_probe.h"

namespace app {

MediaFactsCache::MediaFactsCache(Probe probe, QObject* parent)
    : QObject(parent), probe_(std::move(probe)) {
  pool_.setMaxThreadCount(1);  // the list is read from the top, and a run needs the other cores
}

MediaFactsCache::~MediaFactsCache() { pool_.clear(); }

std::optional<MediaFacts> MediaFactsCache::facts(const QString& path) {
  const auto found = known_.constFind(path);
  if (found != known_.constEnd()) return *found;
  known_.insert(path, std::nullopt);
  pool_.start([this, path] {  // the pool is waited for before this object goes
    const MediaFacts facts = probe_(path);
    QMetaObject::invokeMethod(
        this, [this, path, facts] { learn(path, facts); }, Qt::QueuedConnection);
  });
  return std::nullopt;
}

void MediaFactsCache::learn(const QString& path, const MediaFacts& facts) {
  known_.insert(path, facts);
  Q_EMIT learned(path);
}

namespace {

MediaFacts askMediaInfo(const QString& path) {
  static run::MediaInfoProbe probe;
  if (!probe.available()) return {.asked = false};
  const run::MediaProperties found = probe.query(path.toStdString());
  const double rate = QString::fromStdString(found.frameRate).toDouble();
  const project::Picture picture = found.facts.picture.value_or(project::Picture{});
  return {found.opened && (found.facts.picture || !found.facts.sounds.empty()),
          rate,
          picture.width,
          picture.height,
          std::max(
              {found.facts.lengthSeconds, picture.lengthSeconds, found.firstSound().lengthSeconds}),
          QString::fromStdString(found.facts.deviceModel).simplified(),
          true};
}

}  // namespace

MediaFacts probeMedia(const QString& path) {
  static QMutex mutex;
  static QHash<QString, MediaFacts> known;
  const QFileInfo file(path);
  const QString key = path + '|' + QString::number(file.size()) + '|' +
                      QString::number(file.lastModified().toMSecsSinceEpoch());
  {
    const QMutexLocker lock(&mutex);
    if (const auto found = known.constFind(key); found != known.constEnd()) return *found;
  }
  const MediaFacts facts = askMediaInfo(path);
  const QMutexLocker lock(&mutex);
  return known[key] = facts;
}

}  // namespace app
