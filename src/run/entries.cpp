#include "run/entries.h"

namespace run {

bool isMarker(std::string_view entry) { return entry == kBeginMarker || entry == kEndMarker; }

bool isPlaceholder(std::string_view entry) { return entry == kDummyEntry || isMarker(entry); }

std::string convertedName(std::string_view entry) { return std::string(entry) += kConvertedSuffix; }

std::vector<std::string> convertedNames(std::span<const std::string> entries) {
  std::vector<std::string> names;
  names.reserve(entries.size());
  for (const std::string& entry : entries) names.push_back(convertedName(entry));
  return names;
}

std::vector<std::string> withDummy(std::span<const std::string> videofiles) {
  std::vector<std::string> entries{std::string(kDummyEntry)};
  entries.insert(entries.end(), videofiles.begin(), videofiles.end());
  return entries;
}

}  // namespace run
