#include "project/project_file.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <map>
#include <set>

#include "project/device_names.h"
#include "project/look_up.h"
#include "project/project_text.h"
#include "report/disk.h"
#include "report/files.h"
#include "report/text.h"

namespace project {
namespace {

namespace fs = std::filesystem;

constexpr std::uintmax_t kLargest = 256 << 20;  // bytes; a thousand clips take two million
constexpr std::size_t kMostLookedAt = 50'000;   // names; a search ends in time also on a whole disk

bool isThere(const std::string& path) {
  std::error_code unknown;
  return report::kindOf(report::fromUtf8(path), unknown) == fs::file_type::regular;
}

/// Whether the file is there and, as far as is known, the same.
bool isSame(const MediaFile& file, const std::string& path) {
  if (!isThere(path)) return false;
  return file.bytes == 0 || report::sizeOf(report::fromUtf8(path)) == file.bytes;
}

/// Files by their names, with their folders.
using Found = std::multimap<std::string, std::string>;

/// All files in and below a folder, those nearest first.
Found filesBelow(const std::string& folder) {
  Found found;
  std::vector<std::string> folders{folder};
  std::size_t looked = 0;
  for (std::size_t i = 0; i < folders.size() && looked < kMostLookedAt; ++i)
    for (const report::FolderItem& item : report::itemsOf(report::fromUtf8(folders[i]))) {
      const std::string path = folders[i] + (folders[i].ends_with('/') ? "" : "/") + item.name;
      if (item.isFolder) folders.push_back(path);
      if (item.isFile) found.emplace(item.name, path);
      ++looked;
    }
  return found;
}

std::vector<MediaFile*> allFiles(Project& project) {
  std::vector<MediaFile*> files;
  for (Device& device : project.devices)
    for (Recording& recording : device.recordings)
      for (MediaFile& file : recording.files) files.push_back(&file);
  return files;
}

std::vector<MediaFile*> lostFiles(Project& project) {
  std::vector<MediaFile*> lost = allFiles(project);
  std::erase_if(lost, [](const MediaFile* file) { return isSame(*file, file->path); });
  return lost;
}

/// The folders of the files that are there, and that of the project.
std::vector<std::string> likelyFolders(Project& project, const std::string& own) {
  std::set<std::string> folders{own};
  for (const MediaFile* file : allFiles(project))
    if (isThere(file->path)) folders.insert(std::string(folderOf(file->path)));
  return {folders.begin(), folders.end()};
}

std::string readWhole(const std::string& path, std::string& text) {
  const fs::path file = report::fromUtf8(path);
  std::error_code error;
  if (report::kindOf(file, error) != fs::file_type::regular) return "there is no such file";
  if (report::sizeOf(file) > kLargest) return "it is too large to be one";
  std::ifstream stream(file, std::ios::binary);
  text.assign(std::istreambuf_iterator<char>(stream), {});
  return stream.bad() || !stream.is_open() ? "it may not be read" : "";
}

}  // namespace

bool isProjectPath(const std::string& path) {
  constexpr std::string_view kLower = kEnding;
  if (path.size() <= kLower.size()) return false;
  return std::ranges::equal(path.substr(path.size() - kLower.size()), kLower, [](char a, char b) {
    return (a >= 'A' && a <= 'Z' ? a - 'A' + 'a' : a) == b;
  });
}

report::Status saveProject(const Project& project, const std::string& path) {
  const std::string folder(folderOf(path));
  return report::writeWhole(report::fromUtf8(path), projectText(project, folder));
}

LoadedProject loadProject(const std::string& path) {
  const std::string whole = report::wholePath(path);
  const std::string folder(folderOf(whole));
  LoadedProject loaded;
  std::string text;
  loaded.error = readWhole(whole, text);
  if (loaded.error.empty()) {
    ReadProject read = readProjectText(text, folder, isThere);
    loaded.project = std::move(read.project);
    loaded.error = read.error;
  }
  if (!loaded.project) {
    loaded.error =
        "The project " + report::printable(path) + " cannot be opened: " + loaded.error + ".";
    return loaded;
  }
  if (!missingFiles(*loaded.project).empty())
    loaded.moved = findAgain(*loaded.project, likelyFolders(*loaded.project, folder));
  loaded.missing = missingFiles(*loaded.project);
  return loaded;
}

std::vector<std::string> findAgain(Project& project, const std::vector<std::string>& folders) {
  std::vector<MediaFile*> lost = lostFiles(project);
  std::vector<std::string> places;
  for (const std::string& folder : folders) {
    if (lost.empty()) break;
    const Found found = filesBelow(folder);
    std::erase_if(lost, [&](MediaFile* file) {
      const auto [begin, end] = found.equal_range(std::string(lastPart(file->path)));
      const auto same = std::find_if(begin, end, [&](const auto& place) {
        return file->bytes > 0 && isSame(*file, place.second);
      });
      if (same == end) return false;
      places.push_back(file->path = same->second);
      return true;
    });
  }
  return places;
}

std::vector<std::string> missingFiles(const Project& project) {
  std::vector<std::string> missing;
  for (const Recording* recording : allRecordings(project))
    for (const MediaFile& file : recording->files)
      if (!isSame(file, file.path)) missing.push_back(file.path);
  return missing;
}

}  // namespace project
