#include "project/device_detection.h"

#include <algorithm>
#include <array>
#include <map>
#include <optional>
#include <set>
#include <tuple>

#include "project/device_names.h"

namespace project {
namespace {

/// A file with what its path tells.
struct Told {
  std::size_t file;
  std::string folder;  // of its card or recorder
  ClipName name;
  bool picture;
  std::string model;
};

std::string modelOf(const SourceFile& file) {
  if (file.model.starts_with(file.make)) return file.model;
  return file.make + " " + file.model;
}

std::vector<Told> tellAll(std::span<const SourceFile> files) {
  std::vector<Told> all;
  for (std::size_t i = 0; i < files.size(); ++i) {
    const std::string_view path = files[i].path;
    all.push_back({i, std::string(cardFolder(folderOf(path))), readClipName(stem(lastPart(path))),
                   files[i].picture, files[i].model.empty() ? std::string() : modelOf(files[i])});
  }
  return all;
}

/// What files of one device have in common. A file that nothing speaks for has its own number.
using DeviceKey = std::tuple<std::string, bool, std::string, std::size_t>;

/// The files of one folder and kind, seen together.
struct FolderFiles {
  std::set<std::string> series, models;
  std::size_t takes = 0;
};

using Folders = std::map<std::pair<std::string, bool>, FolderFiles>;

Folders foldersOf(const std::vector<Told>& all) {
  Folders folders;
  std::set<std::tuple<std::string, bool, std::string>> takes;
  for (const Told& one : all) {
    FolderFiles& folder = folders[{one.folder, one.picture}];
    folder.series.insert(one.name.series);
    folder.models.insert(one.model);
    folder.takes += takes.insert({one.folder, one.picture, one.name.take}).second;
  }
  return folders;
}

DeviceKey keyOf(const Told& one, const Folders& folders) {
  const FolderFiles& folder = folders.at({one.folder, one.picture});
  const bool allAlike = folder.models.size() == 1;  // also if none is known
  if (!one.model.empty() && !allAlike) return {one.folder, one.picture, "model " + one.model, 0};
  if (!one.model.empty()) return {one.folder, one.picture, "", 0};
  if (allAlike && soundsLikeDevice(lastPart(one.folder))) return {one.folder, one.picture, "", 0};
  // "cam1" and "cam2", "take 1" and "take 2" may be devices side by side
  if (one.name.counted) return {one.folder, one.picture, "series " + one.name.series, 0};
  if (!one.name.track.empty()) return {one.folder, one.picture, "take " + one.name.take, 0};
  return {one.folder, one.picture, "", one.file + 1};
}

/// How well a track serves for listening: a mix of all before the first of many.
int trackRank(const std::string& track) {
  constexpr std::array kMixes = {"", "lr", "trlr", "mix", "ms", "trms"};
  const auto found = std::ranges::find(kMixes, track);
  if (found != kMixes.end()) return static_cast<int>(found - kMixes.begin());
  return track.starts_with("d") ? 99 : 50;  // d06: the same once more, turned down
}

/// The tracks of one take together, takes in the order of their names.
std::vector<DetectedRecording> recordingsOf(std::vector<const Told*> members) {
  std::ranges::stable_sort(members, [](const Told* a, const Told* b) {
    if (a->name.take != b->name.take) return comesBefore(a->name.take, b->name.take);
    const int first = trackRank(a->name.track), second = trackRank(b->name.track);
    return first != second ? first < second : comesBefore(a->name.track, b->name.track);
  });
  std::vector<DetectedRecording> recordings;
  const Told* last = nullptr;
  for (const Told* one : members) {
    const bool further = last && !one->picture && one->name.take == last->name.take &&
                         one->name.track != last->name.track;
    if (!further) recordings.emplace_back();
    recordings.back().push_back(one->file);
    last = one;
  }
  return recordings;
}

std::string wordsOf(const std::string& series) {
  std::string words = series.substr(0, series.find_last_not_of("#_- .") + 1);
  std::ranges::replace(words, '#', ' ');
  return words;
}

/// What a device of its folder's only one is called, and one of several.
std::string nameOf(const std::vector<const Told*>& members, bool onlyOne) {
  const Told& first = *members.front();
  const std::string folder(lastPart(first.folder));
  if (onlyOne && !saysNothing(folder)) return folder;
  if (!first.model.empty()) return first.model;
  const bool oneTake = std::ranges::all_of(
      members, [&](const Told* other) { return other->name.take == first.name.take; });
  if (oneTake) return first.name.take;
  const std::string words = wordsOf(first.name.series);
  if (words.size() > 1) return words;
  return saysNothing(folder) ? first.name.take : folder;
}

void makeDifferent(std::vector<DetectedDevice>& devices) {
  std::set<std::string> taken;
  for (DetectedDevice& device : devices) {
    const std::string wanted = device.name;
    for (int number = 2; !taken.insert(device.name).second; ++number)
      device.name = wanted + " (" + std::to_string(number) + ")";
  }
}

}  // namespace

bool comesBefore(std::string_view first, std::string_view second) {
  const auto digit = [](char c) { return c >= '0' && c <= '9'; };
  const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? char(c - 'A' + 'a') : c; };
  std::size_t i = 0, j = 0;
  while (i < first.size() && j < second.size()) {
    if (digit(first[i]) && digit(second[j])) {
      const auto number = [&](std::string_view text, std::size_t& at) {
        while (at < text.size() && text[at] == '0') ++at;
        const std::size_t begin = at;
        while (at < text.size() && digit(text[at])) ++at;
        return text.substr(begin, at - begin);
      };
      const std::string_view a = number(first, i), b = number(second, j);
      if (a.size() != b.size()) return a.size() < b.size();
      if (a != b) return a < b;
    } else if (lower(first[i]) != lower(second[j])) {
      return lower(first[i]) < lower(second[j]);
    } else {
      ++i, ++j;
    }
  }
  return first.size() - i < second.size() - j;
}

std::vector<DetectedDevice> detectDevices(std::span<const SourceFile> files) {
  const std::vector<Told> all = tellAll(files);
  const Folders folders = foldersOf(all);
  std::map<DeviceKey, std::size_t> known;
  std::map<std::string, int> devicesIn;
  std::vector<std::vector<const Told*>> members;
  for (const Told& one : all) {
    const auto [place, isNew] = known.try_emplace(keyOf(one, folders), members.size());
    if (isNew) {
      members.emplace_back();
      ++devicesIn[one.folder];
    }
    members[place->second].push_back(&one);
  }
  std::vector<DetectedDevice> devices;
  for (const auto& device : members)
    devices.push_back({nameOf(device, devicesIn[device.front()->folder] == 1),
                       device.front()->picture, recordingsOf(device)});
  makeDifferent(devices);
  return devices;
}

}  // namespace project
