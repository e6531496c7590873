#include "app/files/file_list.h"

#include <QDir>
#include <QFileDialog>

#include "report/console.h"

namespace app {
namespace {

QStringList askForFiles(const QString& startFolder) {
  return QFileDialog::getOpenFileNames(nullptr, "Select one or more files to open", startFolder,
                                       QString());
}

QString deviceStartFolder() { return QDir("/home").exists() ? QString("/home") : QDir::homePath(); }

void addAll(const QStringList& lines) {
  for (const QString& line : lines) fileModel.addEntry(line);
}

void rememberFolder(const QString& path) {
  lastDir = folderOf(path.toStdString());
  report::StandardOutput().line("patot===============" + lastDir);  // "the path"
}

}  // namespace

AnimalModel fileModel;
std::string lastDir = "/home";

QStringList pickFiles() {
  const QStringList picked = askForFiles(QString::fromStdString(lastDir));
  for (const QString& path : picked) {
    fileModel.addEntry(path);
    rememberFolder(path);
  }
  return picked;
}

QStringList pickDeviceFiles() {
  const QStringList lines =
      QStringList(kGroupBegin) + askForFiles(deviceStartFolder()) + QStringList(kGroupEnd);
  addAll(lines);
  return lines;
}

std::string folderOf(const std::string& path) {
  const std::size_t separator = path.find_last_of("/\\");
  return separator == std::string::npos ? std::string() : path.substr(0, separator);
}

std::vector<std::string> listedEntries() {
  std::vector<std::string> entries;
  for (const QString& entry : fileModel.entries()) entries.push_back(entry.toStdString());
  return entries;
}

}  // namespace app
