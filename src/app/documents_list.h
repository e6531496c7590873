#pragma once

#include <QList>
#include <QString>
#include <QVariantList>
#include <string>
#include <string_view>

#include "project/project.h"

namespace app {

/// Whether a file that a run wrote is a document for an editing program, rather than one of its
/// texts and tables.
bool isDocument(const std::string& path);

/// What the editing program that reads documents of a format is called; `format` is one of
/// `timeline::formatNames`.
QString programOfFormat(std::string_view format);

/// One row per editing program, in the order of the files: its name, how many files it got,
/// the path of the first one, what they hold in words, and the list of all paths.
/// `leftOut`: whether there are recordings without a place, which have documents of their own.
QList<QVariantList> documentRows(const project::Written& written, bool leftOut);

}  // namespace app
