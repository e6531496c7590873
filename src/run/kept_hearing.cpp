#include "run/kept_hearing.h"

#include <filesystem>
#include <utility>

#include "report/disk.h"
#include "report/files.h"
#include "run/entries.h"

namespace run {
namespace {

namespace fs = std::filesystem;

/// A folder for every sound, for two may have one name.
std::string placeIn(const fs::path& spare, std::size_t number, const std::string& source) {
  const fs::path folder = spare / ("kept-" + std::to_string(number));
  if (spare.empty() || report::makeFolders(folder)) return {};
  return report::toUtf8(folder / report::fromUtf8(convertedName(source)).filename());
}

}  // namespace

std::vector<std::string> KeptHearing::fetch(const std::vector<std::string>& list) {
  std::vector<std::string> rest = list;
  for (std::size_t i = 0; cache_ && i < list.size(); ++i) {
    // a converted sound in the list may stand where another file's would be made
    if (isPlaceholder(list[i]) || list[i].ends_with(kConvertedSuffix)) continue;
    const FileKey key = keys_[list[i]] = SoundCache::keyOf(list[i]);
    const std::string place = placeIn(spare_.path(), i, list[i]);
    if (place.empty() || !cache_->fetchSound(key, place)) continue;
    sounds_[list[i]] = place;
    rest[i] = kEndMarker;
  }
  return rest;
}

void KeptHearing::putInto(std::vector<Entry>& entries) const {
  for (Entry& entry : entries)
    if (const auto found = sounds_.find(entry.listed); found != sounds_.end())
      entry.converted = found->second;
}

void KeptHearing::forget(const std::string& sentence) {
  std::erase_if(keys_, [&](const auto& key) { return sentence.find(key.first) != sentence.npos; });
}

void KeptHearing::fetchHeard(double tolerance, EarlyListener& early) {
  for (const auto& [listed, sound] : sounds_)
    if (const auto key = keys_.find(listed); key != keys_.end())
      if (auto heard = cache_->fetchHeard(key->second, tolerance)) {
        early.put(sound, std::move(*heard));
        heard_.insert(listed);
      }
}

void KeptHearing::keepHeard(const Material& material, double tolerance) const {
  for (std::size_t i = 0; cache_ && i < material.entries.size(); ++i) {
    const Entry& entry = material.entries[i];
    const float seconds = material.durations[static_cast<Eigen::Index>(i)];
    if (seconds > 0 && !heard_.contains(entry.listed) && isWhole(entry))
      cache_->keepHeard(keys_.at(entry.listed), tolerance, {material.fingerprints[i], seconds});
  }
}

/// Whether what was heard is all of the file, and the file is as it was then.
bool KeptHearing::isWhole(const Entry& entry) const {
  const auto key = keys_.find(entry.listed);
  return key != keys_.end() && entry.conversion.exitCode == 0 &&
         SoundCache::keyOf(entry.listed) == key->second;
}

void KeptHearing::keepSounds(const Material& material) const {
  if (!cache_) return;
  for (std::size_t i = 0; i < material.entries.size(); ++i) {
    const Entry& entry = material.entries[i];
    if (material.samples[i] > 0 && !sounds_.contains(entry.listed) && isWhole(entry))
      cache_->keepSound(keys_.at(entry.listed), material.sounds[i]);
  }
  cache_->trim();
}

}  // namespace run
