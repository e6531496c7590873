#pragma once

#include <QGuiApplication>
#include <QList>
#include <QUrl>

#include "app/qml_application_viewer.h"
#include "app/qml_file.h"

namespace app {

/// Begins a stretch of the run log: seventeen lines of asterisks and a headline.
void logBanner();

/// Name, version and organisation of the program, under which settings are remembered.
void setIdentity();

/// Connects the bridge and the document's engine to window and application, with log lines.
void connectAll(QMLFile& bridge, QmlApplicationViewer& viewer, QGuiApplication& application);

/// The files and folders named on the command line.
QList<QUrl> localFiles(const QStringList& arguments);

}  // namespace app
