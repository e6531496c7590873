#include "run/file_list.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <filesystem>
#include <map>

#include "analysis/sound.h"
#include "report/disk.h"
#include "report/files.h"
#include "run/entries.h"

namespace run {
namespace {

namespace fs = std::filesystem;

constexpr std::uintmax_t kSmallestSound = 1000;  // bytes of a converted file
constexpr std::size_t kShortestFrameRate = 2;    // characters

// Small letters; names may have any.
constexpr std::array<std::string_view, 9> kSoundEndings = {
    ".wav", ".m4a", ".aif", ".mp3", ".aiff", ".flac", ".ogg", ".opus", ".aac"};

/// A part of the sound that is worth a place. What is missing of more than that is told besides.
constexpr double kLeastPart = 0.5;

/// Whether the medium's length is a guess, as for an MP3 that says nothing of it.
bool isEstimate(const Entry& entry) {
  return entry.conversion.messages.find("Estimating duration") != std::string::npos;
}

double lengthSeconds(const std::string& sound) {
  return static_cast<double>(analysis::soundLength(sound)) / analysis::kSampleRate;
}

fs::path identityOf(const std::string& file) {
  std::error_code error;
  const fs::path place = fs::canonical(report::fromUtf8(file), error);
  return error ? report::fromUtf8(file) : place;
}

}  // namespace

bool isKnownSound(std::string_view source) {
  const std::size_t dot = source.rfind('.');
  if (dot == source.npos) return false;
  std::string ending(source.substr(dot));
  std::ranges::transform(ending, ending.begin(), [](unsigned char c) { return std::tolower(c); });
  return std::ranges::find(kSoundEndings, ending) != kSoundEndings.end();
}

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
    entries.push_back({list[i], list[i], converted[i], {}, {}, {}, {}, {}, false, devices[i]});
  return entries;
}

void markUnconverted(std::vector<Entry>& entries) {
  for (Entry& entry : entries)
    if (!entry.conversion.ok() || hadNoRoom(entry.conversion) ||
        report::sizeOf(report::fromUtf8(entry.converted)) < kSmallestSound)
      entry.source = std::string(kIgnorePrefix) + convertedName(entry.listed);
}

void markCutShort(std::vector<Entry>& entries) {
  for (Entry& entry : entries) {
    if (!entry.isFile() || entry.source.starts_with(kIgnorePrefix)) continue;
    if (const double said = entry.media.firstSound().lengthSeconds; said > 0)
      entry.cutShort = lengthSeconds(entry.converted) < said * kLeastPart && !isEstimate(entry);
    if (entry.cutShort) entry.source = std::string(kIgnorePrefix) + convertedName(entry.listed);
  }
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

DeviceGroups groupsOfDevices(const std::vector<Entry>& entries) {
  DeviceGroups groups;
  for (int file = 0; file < std::ssize(entries); ++file) {
    const int device = entries[file].device;
    if (device < 0) continue;
    if (device >= std::ssize(groups)) groups.resize(device + 1);
    groups[device].push_back(file);
  }
  return groups;
}

void dropMarkers(std::vector<Entry>& entries) {
  std::erase_if(entries, [](const Entry& entry) { return isMarker(entry.listed); });
}

}  // namespace run
