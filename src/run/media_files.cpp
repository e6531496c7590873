#include "run/media_files.h"

#include <algorithm>
#include <array>
#include <string>

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

}  // namespace

bool looksLikeMedia(std::string_view name) {
  if (name.starts_with('.') || name.ends_with(kConvertedSuffix)) return false;
  const std::size_t dot = name.rfind('.');
  return dot != name.npos &&
         std::ranges::find(kExtensions, lowerCase(name.substr(dot))) != kExtensions.end();
}

}  // namespace run
