#include "run/other_tracks.h"

#include <algorithm>
#include <filesystem>

#include "report/disk.h"
#include "report/files.h"
#include "report/parallel.h"
#include "report/profile.h"
#include "run/conversion_command.h"
#include "run/sound_level.h"

namespace run {
namespace {

namespace fs = std::filesystem;

constexpr double kMuchLouder = 8;  // 18 dB
constexpr int kMostTracks = 16;

/// All that may be heard instead of the mix of the first track, likeliest first.
std::vector<TrackChoice> otherChoices(const MediaProperties& media) {
  std::vector<TrackChoice> choices;
  if (media.firstSound().channels > 1) choices.push_back({0, true});
  for (int track = 1; track < std::min(static_cast<int>(media.facts.sounds.size()), kMostTracks);
       ++track) {
    choices.push_back({track, false});
    choices.push_back({track, true});
  }
  return choices;
}

std::string sentence(const std::string& listed, const TrackChoice& choice) {
  const std::string path = report::nativeSlashes(listed);
  if (choice.track == 0)
    return "The channels of " + path +
           " cancel each other out, so its first one alone was listened to: turn the sign of one "
           "of them before you use both.";
  return "The first sound track of " + path + " is silent, so its track " +
         std::to_string(choice.track + 1) + " was listened to.";
}

/// Tries the choices one after the other; returns what to say if one took the place of the sound.
std::string tryOthers(Entry& entry, const fs::path& trial, const Services& services) {
  const double level = levelOf(entry.converted);
  for (const TrackChoice& choice : otherChoices(entry.media)) {
    if (services.cancelled) break;
    const std::string target = report::toUtf8(trial);
    const Command command = trackCommand(programFolder(), entry.listed, choice, target);
    services.console.line("ffmpeg windows komand:     " + command.windowsLine);
    if (!services.processes.run(command, services.cancelled).ok()) continue;
    if (services.cancelled || isQuieterThan(target, kNearlySilent) ||
        levelOf(target) < kMuchLouder * level)
      continue;
    if (report::moveFile(trial, report::fromUtf8(entry.converted))) return {};
    entry.heardStream = choice.track;
    return sentence(entry.listed, choice);
  }
  return {};
}

}  // namespace

std::vector<std::string> useOtherTracks(std::vector<Entry>& entries, TemporaryFolder& spare,
                                        const Services& services) {
  std::vector<Entry*> quiet(entries.size(), nullptr);
  report::FirstException failed;
#pragma omp parallel for schedule(dynamic)
  for (std::size_t i = 0; i < entries.size(); ++i)
    failed.keep([&] {
      if (entries[i].isFile() && !otherChoices(entries[i].media).empty() &&
          isQuieterThan(entries[i].converted, kNearlySilent))
        quiet[i] = &entries[i];
    });
  failed.rethrow();
  std::vector<std::string> told;
  for (Entry* entry : quiet) {
    if (!entry || spare.path().empty()) continue;
    const fs::path trial = spare.path() / "other-track.wav";
    if (std::string said = tryOthers(*entry, trial, services); !said.empty())
      told.push_back(std::move(said));
    report::removeFile(trial);
  }
  return told;
}

}  // namespace run
