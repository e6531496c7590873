#include <QApplication>
#include <QIcon>
#include <QQmlContext>
#include <QQmlEngine>
#include <cstdio>

#include "app/appearance.h"
#include "app/companions.h"
#include "app/end_signals.h"
#include "app/files/file_list.h"
#include "app/files/media_collector.h"
#include "app/qml_application_viewer.h"
#include "app/qml_file.h"
#include "app/rendering.h"
#include "app/start_up.h"
#include "app/title_bar.h"
#include "app/translation.h"
#include "app/window_place.h"
#include "app/working_directory.h"
#include "app/workspace.h"
#include "report/console.h"
#include "report/diagnostics.h"
#include "run/guard.h"
#include "run/own_folder.h"
#include "run/safe_start.h"

void qml_register_types_Kestrel();  // the types of this program that the document imports

int main(int argc, char* argv[]) {
  run::startSafely();
  run::startGuard();
  QApplication application(argc, argv);
  app::watchForEndSignals();
  const QStringList arguments = QApplication::arguments().mid(1);
  const QList<QUrl> named = app::localFiles(arguments);
  run::workInOwnFolder();
  app::chooseRendering(arguments);
  app::logBanner();
  app::setIdentity();
  app::speak(application);
  QGuiApplication::setWindowIcon(QIcon(":/icon/kestrel-aligner.png"));
  qml_register_types_Kestrel();

  app::QmlApplicationViewer viewer;
  app::fallBackToSoftware(viewer, arguments, named);
  viewer.rootContext()->setContextProperty("myModel", &app::fileModel);
  app::QMLFile bridge;
  app::progresbar bar;
  app::connectAll(bridge, viewer, application);
  viewer.rootContext()->setContextProperty("QMLFile", &bridge);
  viewer.rootContext()->setContextProperty("pBar", &bar);
  QObject::connect(viewer.engine(), &QQmlEngine::quit, &application, &QCoreApplication::quit);
  report::appendLogLine("view engine to quick connected");

  report::StandardOutput().line(app::workingDirectory() + "/abc/main.qml");
  viewer.setSource(QUrl::fromLocalFile(app::documentFile()));
  if (viewer.status() == QQuickView::Error) {
    std::fprintf(stderr, "The window's document %s could not be loaded from %s\n", app::kDocument,
                 QCoreApplication::applicationDirPath().toUtf8().constData());
  }
  app::rememberPlace(viewer);
  const auto colourTitleBar = [&] { app::darkenTitleBar(viewer, app::appearance().dark()); };
  QObject::connect(&app::appearance(), &app::Appearance::changed, &viewer, colourTitleBar);
  colourTitleBar();
  viewer.show();
  QObject::connect(&application, &QCoreApplication::aboutToQuit, [] {
    if (app::workspace().unsaved()) app::workspace().save();  // where it was saved before
  });
  app::MediaCollector collector;
  collector.add(named, false);
  return QApplication::exec();
}
