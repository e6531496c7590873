#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

#include "project/project.h"

namespace app {

// The list of paths and marker lines that a run takes, and the devices of a project. All pure.

/// Whether a file is sound alone, by its ending.
bool looksLikeSound(const QString& path);

/// Whether a file is of a kind of sound that no run takes, by its ending.
bool isRefusedSound(const QString& path);

/// The first file of every recording; the recordings of one device between the marker lines where
/// there are several.
QStringList entriesOf(const project::Project& project);

/// `project` with the files that `entries` has and it has not, and without those that it has and
/// `entries` has not. What lies between two marker lines is one device; for the rest, folders and
/// names and `models` (by path) decide.
project::Project withEntries(project::Project project, const QStringList& entries,
                             const QHash<QString, QString>& models = {});

/// `project` with the files of `paths` added: as one device, or in devices as folders, names and
/// `models` (by path) tell. A device of the same name and folder takes its further files.
project::Project withFiles(project::Project project, const QStringList& paths, bool oneDevice,
                           const QHash<QString, QString>& models = {});

}  // namespace app
