#include "app/start_up.h"

#include <QFileInfo>
#include <QQmlEngine>
#include <string>

#include "report/diagnostics.h"

namespace app {

void logBanner() {
  for (int i = 0; i < 17; ++i) report::appendLogLine(std::string(160, '*'));
  report::appendLogLine("START NA APLIKACIJATA");  // "start of the application"
}

void setIdentity() {
  QCoreApplication::setApplicationName("Kestrel Aligner");
  QCoreApplication::setApplicationVersion("1.53rc");
  QCoreApplication::setOrganizationName("Kestrel -  tools for digital artists");
  QGuiApplication::setDesktopFileName("kestrel-aligner");  // by which desktops know its icon
}

void connectAll(QMLFile& bridge, QmlApplicationViewer& viewer, QGuiApplication& application) {
  report::appendLogLine("connecting bridge and window");
  QObject::connect(&bridge, &QMLFile::send2gui, &viewer, &QmlApplicationViewer::stopbar);
  report::appendLogLine("send2gui->stopbar connected");
  QObject::connect(&bridge, &QMLFile::send2gui2, &application, &QCoreApplication::quit);
  QObject::connect(&bridge, &QMLFile::doneit, &viewer, &QmlApplicationViewer::done);
  QObject::connect(&bridge, &QMLFile::moveprogressignal, &viewer,
                   &QmlApplicationViewer::makeprogress);
  report::appendLogLine("send2gui2->quit connected");
}

QList<QUrl> localFiles(const QStringList& arguments) {
  QList<QUrl> urls;
  for (const QString& path : arguments) {
    if (path.startsWith("--")) continue;
    urls << QUrl::fromLocalFile(QFileInfo(path).absoluteFilePath());
  }
  return urls;
}

QString documentFile() { return QCoreApplication::applicationDirPath() + '/' + kDocument; }

}  // namespace app
