#include "app/rendering.h"

#include <QCoreApplication>
#include <QProcess>
#include <cstdio>

namespace app {

void chooseRendering(const QStringList& arguments) {
  if (arguments.contains(kSoftwareOption))
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
}

void fallBackToSoftware(QQuickWindow& window, const QStringList& arguments) {
  if (arguments.contains(kSoftwareOption)) return;  // there is nothing left to fall back to
  QObject::connect(&window, &QQuickWindow::sceneGraphError, &window,
                   [arguments](QQuickWindow::SceneGraphError, const QString& message) {
                     std::fprintf(stderr, "Drawing without a graphics driver, because: %s\n",
                                  message.toUtf8().constData());
                     QProcess::startDetached(QCoreApplication::applicationFilePath(),
                                             arguments + QStringList(kSoftwareOption));
                     QCoreApplication::quit();
                   });
}

}  // namespace app
