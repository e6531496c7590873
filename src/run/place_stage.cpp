#include "run/place_stage.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <utility>

#include "analysis/sound.h"
#include "report/text.h"
#include "run/sound_level.h"

namespace run {
namespace {

using place::Placement;

const LeftOut kLostSound = {
    {},
    "Its converted sound could not be read any more.",
    "Leave the results folder and its drive alone while a run is at work, and start again."};

std::vector<align::Recording> recordingsOf(const Material& material) {
  std::vector<std::string> paths;
  for (const Entry& entry : material.entries) paths.push_back(entry.listed);
  const std::vector<std::string> names = report::distinctNames(paths);
  std::vector<align::Recording> recordings;
  for (std::size_t i = 0; i < names.size(); ++i)
    recordings.push_back({names[i], material.samples[i], material.entries[i].device});
  return recordings;
}

/// Numbers from 1 on for people: devices of several files and lone files alike, in list order.
std::vector<int> deviceNumbers(const std::vector<Entry>& entries) {
  std::vector<int> numbers(entries.size(), 0);
  int last = 0;
  for (std::size_t i = 0; i < entries.size(); ++i) {
    if (!entries[i].isFile()) continue;
    const auto same = std::find_if(entries.begin(), entries.begin() + i, [&](const Entry& other) {
      return other.isFile() && other.device >= 0 && other.device == entries[i].device;
    });
    numbers[i] = same == entries.begin() + i ? ++last : numbers[same - entries.begin()];
  }
  return numbers;
}

Member memberOf(const place::Placed& placed, const Material& material,
                const std::vector<int>& devices) {
  const Entry& entry = material.entries[placed.file];
  Member member;
  member.path = entry.listed;
  member.offsetSeconds = placed.offsetSeconds;
  member.durationSeconds = clipSeconds(material, placed.file);
  member.frameRate = entry.pictureRate();
  member.confidence = placed.confidence;
  member.device = devices[placed.file];
  member.driftPpm = placed.driftPpm;
  member.errorSeconds = placed.errorSeconds;
  for (const int other : placed.matchedWith)
    member.matchedWith.push_back(material.entries[other].listed);
  member.soundPath = material.sounds[placed.file];
  return member;
}

/// Clips begin with their pictures, of which the sounds that were placed may be late.
void moveToClipStarts(Placement& placement, const Material& material) {
  for (place::PlacedGroup& group : placement.groups) {
    double earliest = std::numeric_limits<double>::infinity();
    for (place::Placed& member : group.members) {
      member.offsetSeconds -= material.entries[member.file].media.firstSound().startSeconds;
      earliest = std::min(earliest, member.offsetSeconds);
    }
    for (place::Placed& member : group.members) member.offsetSeconds -= earliest;
    std::ranges::stable_sort(group.members, {}, &place::Placed::offsetSeconds);
  }
}

LeftOut leftAlone(const place::Alone& alone, const Material& material) {
  constexpr double kShort = 5;  // seconds
  const std::string& path = material.entries[alone.file].listed;
  const std::int64_t samples = material.samples[alone.file];
  const double seconds = double(samples) / analysis::kSampleRate;
  if (!analysis::pieceOf(material.sounds[alone.file], samples - 1, 1))
    return {path, kLostSound.reason, kLostSound.remedy};
  if (isSilent(material.sounds[alone.file]))
    return {path, "It is silent.", "Check that its microphone was on, or place it by hand."};
  if (std::ranges::count_if(material.entries, &Entry::isFile) < 2)
    return {path, "There is no other usable recording to compare it with.",
            "Add the recordings of the other cameras and recorders."};
  if (seconds < kShort)
    return {path, "It is only " + report::decimalText(seconds, 1) + " s long. " + alone.tried,
            "Place it by hand; a few seconds more of sound would have helped."};
  return {path, alone.tried,
          "Try the slow setting, and check that it is of the same event as the others."};
}

/// The order in which people know their material.
void putInFileOrder(Placement& placement) {
  std::ranges::stable_sort(placement.groups, {}, [](const place::PlacedGroup& group) {
    return std::ranges::min(group.members, {}, &place::Placed::file).file;
  });
}

Placement placedOnce(const Material& material, const Comparison& comparison, bool align,
                     const Services& services) {
  const auto recordings = recordingsOf(material);
  if (!align) return place::placeByVotes(recordings, comparison.votes);
  const align::SoundReader sound = [&](int file, std::int64_t first, std::int64_t count) {
    auto piece = analysis::pieceOf(material.sounds[file], first, count);
    return piece ? std::move(*piece) : throw align::UnreadableSound(file);
  };
  const place::PlacementProgress progress{
      [&](int done, int total) { services.progress.stage(Stage::place, "", done, total); },
      [&] { return services.cancelled.load(); }};
  Placement placement = place::placeBySound(recordings, comparison.votes, sound, progress);
  moveToClipStarts(placement, material);
  return placement;
}

}  // namespace

// A file less each time, so that it ends.
Placement placeAll(Material& material, const Comparison& comparison, bool align,
                   const Services& services, Outcome& outcome) {
  while (true) {
    try {
      Placement placement = placedOnce(material, comparison, align, services);
      putInFileOrder(placement);
      return placement;
    } catch (const align::UnreadableSound& lost) {
      material.samples[lost.file] = 0;
      outcome.ignored.push_back(
          {material.entries[lost.file].listed, kLostSound.reason, kLostSound.remedy});
    }
  }
}

void describePlacement(const Placement& placement, const Material& material, Outcome& outcome) {
  const std::vector<int> devices = deviceNumbers(material.entries);
  for (const place::PlacedGroup& placed : placement.groups) {
    Group group{"Group " + std::to_string(outcome.groups.size() + 1), {}};
    for (const place::Placed& member : placed.members)
      group.members.push_back(memberOf(member, material, devices));
    outcome.groups.push_back(std::move(group));
  }
  for (const place::Alone& alone : placement.alone)
    if (material.entries[alone.file].isFile() && material.samples[alone.file] > 0)
      outcome.unsynced.push_back(leftAlone(alone, material));
  outcome.notices.insert(outcome.notices.end(), placement.doubts.begin(), placement.doubts.end());
}

}  // namespace run
