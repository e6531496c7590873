#pragma once

#include <QGuiApplication>
#include <QList>
#include <QUrl>

#include "app/qml_application_viewer.h"
#include "app/qml_file.h"

namespace app {

inline constexpr char kDocument[] = "qml/syncui1/main.qml";  // below the working directory

/// Begins a stretch of the run log: seventeen lines of asterisks and a headline.
void logBanner();

/// Name, version and organisation of the program, under which settings are remembered.
void setIdentity();

/// Connects the bridge and the document's engine to window and application, with log lines.
void connectAll(QMLFile& bridge, QmlApplicationViewer& viewer, QGuiApplication& application);

/// The files and folders named on the command line; options are left out.
QList<QUrl> localFiles(const QStringList& arguments);

/// Makes the program's own folder the working directory if the window's document lies there and not
/// in the present one: so it is after a double click or a drop on the program in some systems.
void startWhereTheDocumentIs();

}  // namespace app
