#include "app/files/listing.h"

#include <QFileInfo>
#include <QSet>
#include <algorithm>
#include <vector>

#include "app/files/file_list.h"
#include "project/device_detection.h"
#include "project/edit.h"
#include "project/look_up.h"
#include "run/file_list.h"

namespace app {
namespace {

std::vector<project::SourceFile> sourcesOf(const QStringList& paths,
                                           const QHash<QString, QString>& models) {
  std::vector<project::SourceFile> files;
  for (const QString& path : paths)
    files.push_back(
        {path.toStdString(), !looksLikeSound(path), {}, models.value(path).toStdString()});
  return files;
}

project::Device deviceOf(const project::DetectedDevice& detected, const QStringList& paths) {
  project::Device device;
  device.name = detected.name;
  device.kind = detected.picture ? project::DeviceKind::camera : project::DeviceKind::recorder;
  for (const project::DetectedRecording& files : detected.recordings) {
    project::Recording recording;
    for (const std::size_t file : files)
      recording.files.emplace_back().path = paths[static_cast<qsizetype>(file)].toStdString();
    device.recordings.push_back(std::move(recording));
  }
  return device;
}

std::vector<project::Device> devicesOf(const QStringList& paths,
                                       const QHash<QString, QString>& models) {
  std::vector<project::Device> devices;
  for (const project::DetectedDevice& detected : project::detectDevices(sourcesOf(paths, models)))
    devices.push_back(deviceOf(detected, paths));
  return devices;
}

/// All of it as one device, called as the first of what it looks like.
std::vector<project::Device> asOneDevice(std::vector<project::Device> devices) {
  for (std::size_t i = 1; i < devices.size(); ++i) {
    std::ranges::move(devices[i].recordings, std::back_inserter(devices.front().recordings));
    if (devices[i].kind != devices.front().kind)
      devices.front().kind = project::DeviceKind::unknown;
  }
  if (devices.size() > 1) devices.resize(1);
  return devices;
}

QString folderOfFirst(const project::Device& device) {
  if (device.recordings.empty()) return {};
  return QFileInfo(QString::fromStdString(project::mainFile(device.recordings.front()).path))
      .path();
}

bool isTaken(const project::Project& project, const std::string& name) {
  return std::ranges::any_of(project.devices,
                             [&](const project::Device& d) { return d.name == name; });
}

std::string freeName(const project::Project& project, const std::string& wanted) {
  std::string name = wanted;
  for (int number = 2; isTaken(project, name); ++number)
    name = wanted + " (" + std::to_string(number) + ")";
  return name;
}

/// Adds one device, or its recordings to the one that it continues.
project::Project withDevice(project::Project project, project::Device device) {
  const auto same = std::ranges::find_if(project.devices, [&](const project::Device& other) {
    return other.name == device.name && folderOfFirst(other) == folderOfFirst(device);
  });
  const project::Id into = same == project.devices.end() ? 0 : same->id;
  if (into == 0) device.name = freeName(project, device.name);
  project = project::addDevices(std::move(project), {std::move(device)});
  if (into == 0 || project.devices.back().id == into) return project;
  const std::vector<project::Id> both = {into, project.devices.back().id};
  return project::joinDevices(std::move(project), both);
}

QSet<QString> filesOf(const project::Project& project) {
  QSet<QString> files;
  for (const project::Recording* recording : project::allRecordings(project))
    for (const project::MediaFile& file : recording->files)
      files << QString::fromStdString(file.path);
  return files;
}

project::Project withoutMissing(project::Project project, const QStringList& entries) {
  const QSet<QString> listed(entries.begin(), entries.end());
  std::vector<project::Id> gone;
  for (const project::Recording* recording : project::allRecordings(project))
    if (!listed.contains(QString::fromStdString(project::mainFile(*recording).path)))
      gone.push_back(recording->id);
  return project::removeRecordings(std::move(project), gone);
}

}  // namespace

bool looksLikeSound(const QString& path) {
  static const QSet<QString> kSounds = {"aac",  "ac3",  "aif", "aifc", "aiff", "amr", "caf",
                                        "flac", "m4a",  "mka", "mp2",  "mp3",  "oga", "ogg",
                                        "opus", "rf64", "w64", "wav",  "wma"};
  return kSounds.contains(QFileInfo(path).suffix().toLower());
}

bool isRefusedSound(const QString& path) {
  return looksLikeSound(path) && !run::isKnownSound(path.toStdString());
}

QStringList entriesOf(const project::Project& project) {
  QStringList entries;
  for (const project::Device& device : project.devices) {
    const bool group = device.recordings.size() > 1;
    if (group) entries << kGroupBegin;
    for (const project::Recording& recording : device.recordings)
      entries << QString::fromStdString(project::mainFile(recording).path);
    if (group) entries << kGroupEnd;
  }
  return entries;
}

project::Project withEntries(project::Project project, const QStringList& entries,
                             const QHash<QString, QString>& models) {
  project = withoutMissing(std::move(project), entries);
  QStringList loose;
  for (qsizetype i = 0; i < entries.size(); ++i) {
    if (entries[i] != kGroupBegin) {
      if (entries[i] != kGroupEnd) loose << entries[i];
      continue;
    }
    const auto end = entries.indexOf(kGroupEnd, i);
    const auto last = end < 0 ? entries.size() : end;  // without its end, it takes the rest
    project = withFiles(std::move(project), entries.mid(i + 1, last - i - 1), true);
    i = last;
  }
  return withFiles(std::move(project), loose, false, models);
}

project::Project withFiles(project::Project project, const QStringList& paths, bool oneDevice,
                           const QHash<QString, QString>& models) {
  const QSet<QString> known = filesOf(project);
  QStringList fresh;
  for (const QString& path : paths)
    if (path != kGroupBegin && path != kGroupEnd && !known.contains(path) && !fresh.contains(path))
      fresh << path;
  std::vector<project::Device> devices = devicesOf(fresh, models);
  if (oneDevice) devices = asOneDevice(std::move(devices));
  for (project::Device& device : devices)
    project = withDevice(std::move(project), std::move(device));
  return project;
}

}  // namespace app
