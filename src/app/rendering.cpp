#include "app/rendering.h"

#include <QCoreApplication>
#include <QProcess>
#include <QTimer>
#include <cstdio>

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
                     // The window fails when it is shown, before there is a loop to quit.
                     QTimer::singleShot(0, qApp, &QCoreApplication::quit);
                   });
}

}  // namespace app
