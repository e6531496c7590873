#include "app/rendering.h"

#include <QCoreApplication>
#include <QProcess>
#include <cstdio>
#include <cstdlib>

namespace app {

void chooseRendering(const QStringList& arguments) {
  if (arguments.contains(kSoftwareOption))
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
}

void fallBackToSoftware(QQuickWindow& window, const QStringList& arguments,
                        const QList<QUrl>& files) {
  if (arguments.contains(kSoftwareOption)) return;  // there is nothing left to fall back to
  QStringList again(kSoftwareOption);
  for (const QUrl& file : files) again << file.toLocalFile();  // whole: the folder has changed
  QObject::connect(&window, &QQuickWindow::sceneGraphError, &window,
                   [again](QQuickWindow::SceneGraphError, const QString& message) {
                     std::fprintf(stderr, "Drawing without a graphics driver, because: %s\n",
                                  message.toUtf8().constData());
                     QProcess::startDetached(QCoreApplication::applicationFilePath(), again);
                     std::fflush(stderr);
                     std::_Exit(0);  // taking down a window that failed can wait for ever
                   });
}

}  // namespace app
