#pragma once

#include <QGuiApplication>
#include <QList>
#include <QUrl>

#include "app/qml_application_viewer.h"
#include "app/qml_file.h"

namespace app {

inline constexpr char kDocument[] = "qml/syncui1/main.qml";  // below the own folder

/// Begins a stretch of the run log: seventeen lines of asterisks and a headline.
void logBanner();

/// Name, version and organisation of the program, under which settings are remembered.
void setIdentity();

/// Connects the bridge and the document's engine to window and application, with log lines.
void connectAll(QMLFile& bridge, QmlApplicationViewer& viewer, QGuiApplication& application);

/// The files and folders named on the command line; options are left out.
QList<QUrl> localFiles(const QStringList& arguments);

/// The window's document. It lies in the program's own folder and is never taken from the working
/// directory, where a document of that name could be anybody's.
QString documentFile();

}  // namespace app
