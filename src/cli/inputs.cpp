#include "cli/inputs.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <set>

#include "cli/text_list.h"
#include "project/device_detection.h"
#include "project/edit.h"
#include "project/look_up.h"
#include "project/project_file.h"
#include "report/disk.h"
#include "report/files.h"
#include "report/text.h"
#include "run/entries.h"
#include "run/media_files.h"

namespace cli {
namespace {

namespace fs = std::filesystem;
using Strings = std::vector<std::string>;

/// One named file or folder as files.
void expand(const std::string& entry, Strings& files, Strings& notices) {
  std::error_code unknown;  // what cannot be asked about is left to the run to report
  const std::string whole = report::wholePath(entry);
  if (report::kindOf(report::fromUtf8(whole), unknown) != fs::file_type::directory) {
    files.push_back(whole);
    return;
  }
  const Strings found = run::mediaFilesBelow(whole);
  if (found.empty())
    notices.push_back("The folder " + report::printable(entry) +
                      " holds no media files that may be read.");
  files.insert(files.end(), found.begin(), found.end());
}

void addDevice(const Strings& named, Inputs& inputs) {
  inputs.entries.emplace_back(run::kBeginMarker);
  for (const std::string& entry : named) expand(entry, inputs.entries, inputs.notices);
  inputs.entries.emplace_back(run::kEndMarker);
}

void addList(const std::string& list, Inputs& inputs) {
  const fs::path path = report::fromUtf8(list);
  const TextList read = readList(list);
  if (!read.error.empty()) {
    inputs.error = "--list: '" + report::printable(list) + "' " + read.error +
                   "; give a text file with one entry a line";
    return;
  }
  for (const std::string& line : read.lines) {
    if (run::isMarker(line)) {
      inputs.entries.push_back(line);
    } else {
      const fs::path entry = path.parent_path() / report::fromUtf8(line);
      expand(report::toUtf8(entry), inputs.entries, inputs.notices);
    }
  }
}

bool isSound(const std::string& path) {
  constexpr std::array kEndings = {".wav", ".bwf", ".mp3",  ".m4a",  ".aif", ".aiff",
                                   ".aac", ".ogg", ".opus", ".flac", ".wma", ".caf"};
  std::string ending = path.substr(std::min(path.find_last_of('.'), path.size()));
  std::ranges::transform(ending, ending.begin(), [](unsigned char c) { return std::tolower(c); });
  return std::ranges::find(kEndings, ending) != kEndings.end();
}

/// All of `files` as one device; tracks of one moment are one recording.
project::Device deviceOf(const std::string& name, const Strings& files) {
  std::vector<project::SourceFile> sources;
  for (const std::string& file : files) sources.push_back({file, !isSound(file), {}, {}});
  project::Device device;
  device.name = name;
  for (const project::DetectedDevice& detected : project::detectDevices(sources)) {
    if (device.kind != project::DeviceKind::camera)
      device.kind = detected.picture ? project::DeviceKind::camera : project::DeviceKind::recorder;
    for (const project::DetectedRecording& found : detected.recordings) {
      project::Recording& recording = device.recordings.emplace_back();
      for (const std::size_t file : found) recording.files.emplace_back().path = files[file];
    }
  }
  return device;
}

/// A device of every folder in `folder`; files beside them are devices of their own.
void addDevicesIn(const std::string& folder, Inputs& inputs) {
  const std::string whole = report::wholePath(folder);
  std::vector<project::Device> devices;
  Strings loose;
  std::vector<report::FolderItem> items = report::itemsOf(report::fromUtf8(whole));
  std::ranges::sort(items, project::comesBefore, &report::FolderItem::name);
  for (const report::FolderItem& item : items) {
    const std::string path = whole + (whole.ends_with('/') ? "" : "/") + item.name;
    Strings files;
    if (item.isFolder && !run::isHidden(item.name)) files = run::mediaFilesBelow(path);
    if (!files.empty()) devices.push_back(deviceOf(item.name, files));
    if (item.isFile && run::looksLikeMedia(item.name)) loose.push_back(path);
  }
  if (devices.empty())
    inputs.notices.push_back("The folder " + report::printable(folder) +
                             " holds no folder with media files.");
  inputs.project = project::addDevices(std::move(inputs.project), std::move(devices));
  inputs.entries.insert(inputs.entries.end(), loose.begin(), loose.end());
}

/// The recordings that `names` stand for: whole paths, or names of files.
void choose(const Strings& names, Inputs& inputs) {
  for (const std::string& name : names) {
    const std::string whole = report::wholePath(name);
    bool found = false;
    for (const project::Recording* recording : allRecordings(inputs.project)) {
      const std::string& path = mainFile(*recording).path;
      if (path != whole && path.substr(path.find_last_of('/') + 1) != name) continue;
      inputs.again.push_back(recording->id);
      found = true;
    }
    if (!found)
      inputs.error = "--only: no recording of the project is called '" + report::printable(name) +
                     "'; give the name of a file as kestrel-align show tells it";
  }
}

void addEntry(const std::string& entry, Inputs& inputs) {
  if (!project::isProjectPath(entry)) return expand(entry, inputs.entries, inputs.notices);
  if (!inputs.project.devices.empty())
    inputs.error = "Only one project can be gone on with; name one";
  else
    openProject(entry, inputs);
}

/// A few by name; of a whole drive their number says more.
void tellFiles(const std::vector<std::string>& files, const std::string& what,
               std::vector<std::string>& notices) {
  constexpr std::size_t kFew = 5;
  const std::size_t named = files.size() > kFew ? 1 : files.size();
  for (std::size_t i = 0; i < named; ++i)
    notices.push_back(report::printable(files[i]) + " is " + what + ".");
  if (named < files.size())
    notices.push_back("So are " + std::to_string(files.size() - named) + " more files.");
}

}  // namespace

void openProject(const std::string& path, Inputs& inputs) {
  project::LoadedProject loaded = project::loadProject(path);
  if (!loaded.project) {
    inputs.error = loaded.error;
    inputs.cannotOpen = true;
    return;
  }
  tellFiles(loaded.moved, "found again at another place", inputs.notices);
  tellFiles(loaded.missing, "missing, or not what it was", inputs.notices);
  inputs.project = std::move(*loaded.project);
}

Inputs collectInputs(const Arguments& arguments) {
  Inputs inputs;
  for (const Strings& device : arguments.devices) addDevice(device, inputs);
  for (const std::string& list : arguments.lists) addList(list, inputs);
  for (const std::string& entry : arguments.entries) addEntry(entry, inputs);
  for (const std::string& folder : arguments.devicesIn) addDevicesIn(folder, inputs);
  if (inputs.error.empty()) choose(arguments.only, inputs);
  return inputs;
}

}  // namespace cli
