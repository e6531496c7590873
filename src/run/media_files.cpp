#include "run/media_files.h"

#include <algorithm>
#include <array>
#include <string>

#include "project/device_detection.h"
#include "report/disk.h"
#include "report/files.h"
#include "run/entries.h"

namespace run {
namespace {

constexpr std::array<std::string_view, 45> kExtensions = {
    ".3g2",  ".3gp",  ".aac", ".ac3", ".aif",  ".aifc", ".aiff", ".amr", ".avi",
    ".braw", ".caf",  ".dv",  ".f4v", ".flac", ".flv",  ".insv", ".m2t", ".m2ts",
    ".m2v",  ".m4a",  ".m4v", ".mka", ".mkv",  ".mod",  ".mov",  ".mp2", ".mp3",
    ".mp4",  ".mpeg", ".mpg", ".mts", ".mxf",  ".oga",  ".ogg",  ".ogv", ".opus",
    ".rf64", ".tod",  ".ts",  ".vob", ".w64",  ".wav",  ".webm", ".wma", ".wmv"};

std::string lowerCase(std::string_view text) {
  std::string lower(text);
  for (char& c : lower)
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  return lower;
}

void addMediaFilesBelow(const std::string& folder, std::vector<std::string>& files) {
  for (const report::FolderItem& item : report::itemsOf(report::fromUtf8(folder))) {
    const std::string path = folder + (folder.ends_with('/') ? "" : "/") + item.name;
    if (item.isFolder && !isHidden(item.name)) addMediaFilesBelow(path, files);
    if (item.isFile && looksLikeMedia(item.name)) files.push_back(path);
  }
}

}  // namespace

bool isHidden(std::string_view name) { return name.starts_with('.'); }

std::vector<std::string> mediaFilesBelow(const std::string& folder) {
  std::vector<std::string> files;
  addMediaFilesBelow(folder, files);
  std::ranges::sort(files);  // of names that are alike but for case or zeros the same one is first
  std::ranges::stable_sort(files, project::comesBefore);
  return files;
}

bool looksLikeMedia(std::string_view name) {
  if (isHidden(name) || name.ends_with(kConvertedSuffix)) return false;
  const std::size_t dot = name.rfind('.');
  return dot != name.npos &&
         std::ranges::find(kExtensions, lowerCase(name.substr(dot))) != kExtensions.end();
}

}  // namespace run
