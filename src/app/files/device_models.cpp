#include "app/files/device_models.h"

#include <QCoreApplication>
#include <QPointer>

#include "app/files/media_facts.h"

namespace app {

DeviceModels::DeviceModels(Ask ask) : ask_(std::move(ask)) { pool_.setMaxThreadCount(1); }

void DeviceModels::learn(const QStringList& files, QObject* context, Told told) {
  if (stop_) return;
  pool_.start([this, files, context = QPointer<QObject>(context), ask = ask_, told] {
    QHash<QString, QString> models;
    for (const QString& file : files) {
      if (stop_) return;
      if (const QString model = ask(file); !model.isEmpty()) models.insert(file, model);
    }
    QMetaObject::invokeMethod(
        QCoreApplication::instance(),
        [context, models, told] {
          if (context) told(models);
        },
        Qt::QueuedConnection);
  });
}

void DeviceModels::stop() {
  stop_ = true;
  pool_.waitForDone();
}

DeviceModels& deviceModels() {
  static auto* one = [] {
    qAddPostRoutine([] { deviceModels().stop(); });
    return new DeviceModels([](const QString& path) { return probeMedia(path).model; });
  }();
  return *one;
}

}  // namespace app
