#include "app/ask.h"

#include <QDir>
#include <QFileDialog>
#include <QStandardPaths>

#include "app/files/file_list.h"
#include "project/project_file.h"

namespace app {
namespace {

QUrl fromPath(const QString& path) { return path.isEmpty() ? QUrl() : QUrl::fromLocalFile(path); }

QString projectFilter() { return Ask::tr("Kestrel projects (*%1)").arg(project::kEnding); }

QString startFolder() {
  const QString last = QString::fromStdString(lastDir);
  return QDir(last).exists() ? last
                             : QStandardPaths::writableLocation(QStandardPaths::MoviesLocation);
}

}  // namespace

QUrl Ask::forRecordings() {
  return fromPath(QFileDialog::getExistingDirectory(nullptr, tr("Select a folder of recordings"),
                                                    startFolder()));
}

QUrl Ask::forResults(const QString& present) {
  return fromPath(
      QFileDialog::getExistingDirectory(nullptr, tr("Select a folder for the timelines"), present));
}

QUrl Ask::forProject() {
  return fromPath(
      QFileDialog::getOpenFileName(nullptr, tr("Open a project"), startFolder(), projectFilter()));
}

QUrl Ask::whereToSave(const QString& name) {
  QString plain = name.isEmpty() ? tr("Untitled") : name;
  plain.replace(':', '.');  // no file name on Windows holds one
  const QString proposed = QDir(startFolder()).filePath(plain + project::kEnding);
  return fromPath(
      QFileDialog::getSaveFileName(nullptr, tr("Save the project"), proposed, projectFilter()));
}

}  // namespace app
