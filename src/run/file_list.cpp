#include "run/file_list.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <filesystem>
#include <map>

#include "report/disk.h"
#include "report/files.h"
#include "run/device_groups.h"
#include "run/entries.h"

namespace run {
namespace {

namespace fs = std::filesystem;

constexpr std::uintmax_t kSmallestSound = 1000;  // bytes of a converted file
constexpr std::size_t kShortestFrameRate = 2;    // characters

// The four-letter endings never match a piece of three characters: a name ending in aiff counts
// as unknown, and users have come to know it so.
constexpr std::array<std::string_view, 10> kSoundEndings = {"WAV", "wav",  "m4a",  "M4A", "AIF",
                                                            "aif", "aiff", "AIFF", "mp3", "MP3"};

bool isKnownSound(std::string_view source) {
  const std::string_view ending =
      source.substr(source.size() - std::min<std::size_t>(3, source.size()));
  return std::ranges::find(kSoundEndings, ending) != kSoundEndings.end();
}

fs::path identityOf(const std::string& file) {
  std::error_code error;
  const fs::path place = fs::canonical(report::fromUtf8(file), error);
  return error ? report::fromUtf8(file) : place;
}

}  // namespace

bool Entry::isFile() const { return !isPlaceholder(listed); }

std::optional<double> Entry::pictureRate() const {
  double rate = 0;
  std::from_chars(frameRate.data(), frameRate.data() + frameRate.size(), rate);
  if (frameRate == kNoFrameRate || rate <= 0) return std::nullopt;
  return rate;
}

std::vector<std::string> withoutRepeats(const std::vector<std::string>& videofiles,
                                        std::vector<std::string>& repeated) {
  const int count = static_cast<int>(videofiles.size());
  const std::vector<int> devices = devicesOf(deviceGroups(convertedNames(videofiles)), count);
  std::map<fs::path, int> kept;
  for (int i = 0; i < count; ++i) {
    if (isMarker(videofiles[i])) continue;
    const auto [place, first] = kept.try_emplace(identityOf(videofiles[i]), i);
    if (!first && devices[place->second] < 0 && devices[i] >= 0) place->second = i;
  }
  std::vector<std::string> once;
  for (int i = 0; i < count; ++i) {
    const bool keep = isMarker(videofiles[i]) || kept[identityOf(videofiles[i])] == i;
    (keep ? once : repeated).push_back(videofiles[i]);
  }
  return once;
}

std::vector<Entry> makeEntries(const std::vector<std::string>& list) {
  const std::vector<std::string> converted = convertedNames(list);
  const int count = static_cast<int>(list.size());
  const std::vector<int> devices = devicesOf(deviceGroups(converted), count);
  std::vector<Entry> entries;
  for (int i = 0; i < count; ++i)
    entries.push_back({list[i], list[i], converted[i], {}, {}, {}, devices[i]});
  return entries;
}

void markUnconverted(std::vector<Entry>& entries) {
  for (Entry& entry : entries)
    if (!entry.conversion.started.ok() ||
        report::sizeOf(report::fromUtf8(entry.converted)) < kSmallestSound)
      entry.source = std::string(kIgnorePrefix) + entry.converted;
}

bool isIgnored(const Entry& entry) {
  const bool picture = entry.frameRate.size() >= kShortestFrameRate;
  if (!picture && !isKnownSound(entry.source)) return true;
  return entry.source.starts_with(kIgnorePrefix);
}

void dropMarked(std::vector<Entry>& entries) {
  for (Entry& entry : entries)
    if (entry.frameRate.size() < kShortestFrameRate) entry.frameRate = kNoFrameRate;
  std::erase_if(entries, [](const Entry& entry) { return entry.source == kToDrop; });
}

}  // namespace run
