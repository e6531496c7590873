#include <algorithm>
#include <array>
#include <iterator>
#include <set>

#include "project/device_names.h"
#include "project/edit.h"
#include "project/look_up.h"
#include "project/tidy.h"

namespace project {
namespace {

/// Takes recordings out of their devices, in the order in which they are named.
std::vector<Recording> take(Project& project, std::span<const Id> recordings) {
  std::vector<Recording> taken;
  for (const Id id : recordings)
    for (Device& device : project.devices) {
      const auto found = std::ranges::find(device.recordings, id, &Recording::id);
      if (found == device.recordings.end()) continue;
      taken.push_back(std::move(*found));
      device.recordings.erase(found);
      break;
    }
  return taken;
}

void insertBefore(std::vector<Recording>& list, Id before, std::vector<Recording> recordings) {
  list.insert(std::ranges::find(list, before, &Recording::id),
              std::make_move_iterator(recordings.begin()),
              std::make_move_iterator(recordings.end()));
}

Device deviceLike(const Device& other, Id id, const std::string& name) {
  Device device;
  device.id = id;
  device.name = name;
  device.kind = other.kind;
  return device;
}

std::set<std::string> pathsOf(const Project& project) {
  std::set<std::string> paths;
  for (const Recording* recording : allRecordings(project))
    for (const MediaFile& file : recording->files) paths.insert(file.path);
  return paths;
}

}  // namespace

Project renameDevice(Project project, Id device, const std::string& name) {
  if (Device* found = findDevice(project, device)) found->name = name;
  return project;
}

Project setDeviceKind(Project project, Id device, DeviceKind kind) {
  if (Device* found = findDevice(project, device)) found->kind = kind;
  return project;
}

Project joinDevices(Project project, std::span<const Id> devices) {
  Device* into = nullptr;
  for (const Id id : devices) {
    Device* device = findDevice(project, id);
    if (!device || device == into) continue;
    if (into) {
      std::ranges::move(device->recordings, std::back_inserter(into->recordings));
      device->recordings.clear();
    } else {
      into = device;
    }
  }
  tidy(project);
  return project;
}

Project splitDevice(Project project, std::span<const Id> recordings, const std::string& name) {
  const auto known = std::ranges::find_if(
      recordings, [&](Id id) { return findRecording(project, id) != nullptr; });
  if (known == recordings.end()) return project;
  const Id from = deviceOf(project, *known)->id;
  Device device = deviceLike(*findDevice(project, from), freshId(project), name);
  device.recordings = take(project, recordings);
  const auto place = std::ranges::find(project.devices, from, &Device::id);
  project.devices.insert(std::next(place), std::move(device));
  tidy(project);
  return project;
}

Project splitWholly(Project project, Id device) {
  const Device* found = findDevice(project, device);
  if (!found || found->recordings.size() < 2) return project;
  const std::vector<Recording> recordings = found->recordings;
  for (auto one = recordings.rbegin(); one != recordings.rend();
       ++one)  // each lands after `device`
    project = splitDevice(std::move(project), std::array{one->id}, nameOfFile(mainFile(*one).path));
  return project;
}

Project moveRecordings(Project project, std::span<const Id> recordings, Id device, Id before) {
  if (!findDevice(project, device) || std::ranges::find(recordings, before) != recordings.end())
    return project;
  std::vector<Recording> moved = take(project, recordings);
  insertBefore(findDevice(project, device)->recordings, before, std::move(moved));
  tidy(project);
  return project;
}

Project moveDevice(Project project, Id device, Id before) {
  const auto found = std::ranges::find(project.devices, device, &Device::id);
  if (found == project.devices.end() || device == before) return project;
  Device moved = std::move(*found);
  project.devices.erase(found);
  project.devices.insert(std::ranges::find(project.devices, before, &Device::id), std::move(moved));
  return project;
}

Project addDevices(Project project, std::vector<Device> devices) {
  std::set<std::string> paths = pathsOf(project);
  Id id = freshId(project);
  for (Device& device : devices) {
    std::erase_if(device.recordings, [&](const Recording& recording) {
      return recording.files.empty() || !paths.insert(mainFile(recording).path).second;
    });
    device.id = id++;
    for (Recording& recording : device.recordings) recording.id = id++;
    project.devices.push_back(std::move(device));
  }
  tidy(project);
  return project;
}

Project removeRecordings(Project project, std::span<const Id> recordings) {
  (void)take(project, recordings);
  tidy(project);
  return project;
}

std::string nameOfFile(const std::string& path) { return std::string(stem(lastPart(path))); }

}  // namespace project
