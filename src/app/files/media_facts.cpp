#include "app/files/media_facts.h"

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

MediaFacts probeMedia(const QString& path) {
  static run::MediaInfoProbe probe;
  const run::MediaProperties found = probe.query(path.toStdString());
  const double rate = QString::fromStdString(found.frameRate).toDouble();
  const project::Picture picture = found.facts.picture.value_or(project::Picture{});
  return {found.opened && (found.facts.picture || !found.facts.sounds.empty()), rate, picture.width,
          picture.height,
          std::max({found.facts.lengthSeconds, picture.lengthSeconds,
                    found.firstSound().lengthSeconds})};
}

}  // namespace app
