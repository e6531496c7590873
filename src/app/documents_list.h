#pragma once

#include <QList>
#include <QString>
#include <QVariantList>
#include <string>

#include "project/project.h"

namespace app {

/// Whether a file that a run wrote is a document for an editing program, rather than one of its
/// texts and tables.
bool isDocument(const std::string& path);

/// One row per editing program, in the order of the files: its name, how many files it got,
/// the path of the first one, what they hold in words, and the list of all paths.
QList<QVariantList> documentRows(const project::Written& written);

}  // namespace app
