#include "app/kept_room.h"

#include <QLocale>

#include "app/run_session.h"
#include "app/workspace.h"
#include "run/sound_cache.h"

namespace app {

KeptRoom::KeptRoom(QObject* parent) : QObject(parent) {
  pool_.setMaxThreadCount(1);
  connect(&runSession(), &RunSession::runningChanged, this, [this] {
    if (!runSession().running()) refresh();
  });
  refresh();
}

KeptRoom::~KeptRoom() { pool_.waitForDone(); }

QString KeptRoom::size() const {
  return QLocale().formattedDataSize(static_cast<qint64>(bytes_), 1,
                                     QLocale::DataSizeTraditionalFormat);
}

void KeptRoom::refresh() {
  pool_.start([this, folder = run::SoundCache::usualFolder()] {
    const std::uintmax_t bytes = run::SoundCache(folder).bytes();
    QMetaObject::invokeMethod(
        this,
        [this, bytes] {
          bytes_ = bytes;
          Q_EMIT changed();
        },
        Qt::QueuedConnection);
  });
}

void KeptRoom::clear() {
  if (runSession().running()) return;  // it reads there
  run::SoundCache(run::SoundCache::usualFolder()).clear();
  workspace().forgetLostSounds();
  refresh();
}

}  // namespace app
