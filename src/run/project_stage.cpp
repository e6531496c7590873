#include "run/project_stage.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <set>

#include "project/clock_placement.h"
#include "project/device_detection.h"
#include "project/edit.h"
#include "project/file_stamp.h"
#include "project/look_up.h"
#include "project/project_file.h"
#include "project/tidy.h"
#include "report/disk.h"
#include "run/entries.h"

namespace run {
namespace {

using project::Clip;
using project::Id;
using project::Project;

bool isWhole(const std::string& path) {
  return path.starts_with('/') || path.starts_with('\\') || (path.size() > 1 && path[1] == ':');
}

project::Recording recordingOf(const std::string& path) {
  project::Recording recording;
  recording.files.emplace_back();
  recording.files.front().path = path;
  return recording;
}

/// Several files of one device are called as they would be if they were found together.
std::string deviceName(const std::vector<project::Recording>& recordings) {
  std::vector<project::SourceFile> files;
  for (const project::Recording& recording : recordings)
    files.push_back({mainFile(recording).path, false, {}, {}});
  const auto devices = project::detectDevices(files);
  return devices.size() == 1 && files.size() > 1 ? devices.front().name
                                                 : project::nameOfFile(files.front().path);
}

void append(std::vector<std::string>& list, const std::vector<std::string>& files) {
  const bool several = files.size() > 1;
  if (several) list.emplace_back(kBeginMarker);
  list.insert(list.end(), files.begin(), files.end());
  if (several) list.emplace_back(kEndMarker);
}

/// The recordings of a run's entries; 0 for entries that are no file.
std::vector<Id> idsOf(const Project& project, const std::vector<Entry>& entries) {
  std::map<std::string, Id> known;
  for (const project::Recording* recording : allRecordings(project))
    known.emplace(mainFile(*recording).path, recording->id);
  std::vector<Id> ids;
  for (const Entry& entry : entries) {
    const auto found = known.find(pathInProject(entry.listed));
    ids.push_back(entry.isFile() && found != known.end() ? found->second : 0);
  }
  return ids;
}

/// What is done for one project and one run.
class Filling {
 public:
  Filling(Project& project, const Findings& findings, std::span<const Id> again)
      : project_(project), findings_(findings), ids_(idsOf(project, findings.material.entries)) {
    const std::vector<Id> all(again.empty() ? ids_ : std::vector<Id>(again.begin(), again.end()));
    for (const Id id : all) {
      const Clip* clip = clipOf(project_, id);
      if (id > 0 && !(clip && clip->pinned)) toPlace_.insert(id);
    }
  }

  void run() {
    takeFacts();
    takeReasons();
    takeOldClips();
    for (const place::PlacedGroup& group : findings_.placement.groups) placeGroup(group);
    takeEvidence();
    project_ = project::placeByClock(std::move(project_));
  }

 private:
  void takeFacts();
  void takeReasons();
  void takeOldClips();
  void placeGroup(const place::PlacedGroup& placed);
  Clip clipFor(const place::Placed& member);
  const place::Placed* anchorOf(const place::Placed& member,
                                const place::PlacedGroup& placed) const;
  bool stands(int file) const { return clipOf(project_, ids_[file]) != nullptr; }
  void takeEvidence();

  Project& project_;
  const Findings& findings_;
  std::vector<Id> ids_;          // by file index of the run
  std::set<Id> toPlace_;         // recordings whose places are this run's to tell
  std::map<Id, Clip> oldClips_;  // of those
};

void Filling::takeFacts() {
  const Material& material = findings_.material;
  for (int file = 0; file < std::ssize(ids_); ++file) {
    project::Recording* recording = findRecording(project_, ids_[file]);
    if (!recording) continue;
    const Entry& entry = material.entries[file];
    project::MediaFile& main = recording->files.front();
    project::stamp(main);
    if (entry.media.opened) main.facts = entry.media.facts;
    recording->heardStream = entry.heardStream;
    recording->soundStartSeconds = entry.media.firstSound().startSeconds;
    recording->lengthSeconds = clipSeconds(material, file);
    recording->usable = true;
    recording->leftOut.reset();
  }
}

void Filling::takeReasons() {
  std::map<std::string, project::Recording*> known;
  for (project::Device& device : project_.devices)
    for (project::Recording& recording : device.recordings)
      known.emplace(mainFile(recording).path, &recording);
  const auto note = [&](const LeftOut& file, bool usable) {
    const auto found = known.find(pathInProject(file.path));
    if (found == known.end()) return;
    project::Recording& recording = *found->second;
    recording.usable = usable;
    if (!usable || toPlace_.contains(recording.id))
      recording.leftOut = project::Reason{file.reason, file.remedy};
  };
  for (const LeftOut& file : findings_.outcome.unsynced) note(file, true);
  for (const LeftOut& file : findings_.outcome.ignored) note(file, false);
}

void Filling::takeOldClips() {
  for (project::Group& group : project_.groups)
    std::erase_if(group.clips, [&](const Clip& clip) {
      const bool byClock = clip.placedBy == project::PlacedBy::clock && !clip.pinned;
      if (!toPlace_.contains(clip.recording)) return byClock;  // worked out anew at the end
      oldClips_.emplace(clip.recording, clip);
      return true;
    });
  project::tidy(project_);
}

Clip Filling::clipFor(const place::Placed& member) {
  Clip clip;
  clip.recording = ids_[member.file];
  clip.startSeconds = member.offsetSeconds;
  clip.confidence = member.confidence;
  clip.errorSeconds = member.errorSeconds;
  clip.driftPpm = member.driftPpm;
  clip.oneClockShiftSeconds = member.oneClockShift;
  for (const int other : member.matchedWith)
    if (ids_[other] > 0) clip.matchedWith.push_back(ids_[other]);
  if (const auto old = oldClips_.find(clip.recording); old != oldClips_.end()) {
    clip.excluded = old->second.excluded;  // what a user decided outlives the place
    clip.unknown = old->second.unknown;
  }
  return clip;
}

/// The clip that stands in the project already and tells best where `member` belongs: the one that
/// it matches most strongly, else the nearest.
const place::Placed* Filling::anchorOf(const place::Placed& member,
                                       const place::PlacedGroup& placed) const {
  const auto find = [&](int file) {
    const auto found = std::ranges::find(placed.members, file, &place::Placed::file);
    return found == placed.members.end() ? nullptr : &*found;
  };
  for (const int file : member.matchedWith)
    if (stands(file) && find(file)) return find(file);
  const place::Placed* nearest = nullptr;
  const auto distance = [&](const place::Placed& other) {
    return std::abs(other.offsetSeconds - member.offsetSeconds);
  };
  for (const place::Placed& other : placed.members)
    if (stands(other.file) && (!nearest || distance(other) < distance(*nearest))) nearest = &other;
  return nearest;
}

void Filling::placeGroup(const place::PlacedGroup& placed) {
  project::Group fresh;
  std::vector<std::pair<Id, Clip>> beside;  // into groups that there are
  for (const place::Placed& member : placed.members) {
    if (!toPlace_.contains(ids_[member.file])) continue;
    Clip clip = clipFor(member);
    if (const place::Placed* anchor = anchorOf(member, placed)) {
      const Id other = ids_[anchor->file];
      clip.startSeconds =
          clipOf(project_, other)->startSeconds + member.offsetSeconds - anchor->offsetSeconds;
      beside.emplace_back(groupOf(project_, other)->id, std::move(clip));
    } else {
      fresh.clips.push_back(std::move(clip));
    }
  }
  for (auto& [group, clip] : beside) findGroup(project_, group)->clips.push_back(std::move(clip));
  if (fresh.clips.size() == 1)
    findRecording(project_, fresh.clips.front().recording)->leftOut =
        project::Reason{"It matches only recordings that have no place and were not to be placed.",
                        "Synchronise them together with it."};
  if (fresh.clips.size() < 2) return;
  fresh.id = freshId(project_);
  fresh.name = project::freshGroupName(project_);
  project_.groups.push_back(std::move(fresh));
}

void Filling::takeEvidence() {
  constexpr double kWorthKeeping = 4;  // standard deviations; less is what chance gives many pairs
  std::erase_if(project_.evidence, [&](const project::PairEvidence& pair) {
    return toPlace_.contains(pair.first) || toPlace_.contains(pair.second);
  });
  for (const vote::PairVote& vote : findings_.comparison.votes) {
    project::PairEvidence pair{ids_[vote.first], ids_[vote.second], {}, {}};
    if (!toPlace_.contains(pair.first) && !toPlace_.contains(pair.second)) continue;
    if (pair.first == 0 || pair.second == 0) continue;
    const double shift = findings_.material.entries[vote.first].media.firstSound().startSeconds -
                         findings_.material.entries[vote.second].media.firstSound().startSeconds;
    for (const vote::DeltaPeak& peak : vote.peaks)
      if (peak.significance >= kWorthKeeping)
        pair.places.push_back({peak.offsetSeconds + shift, peak.significance});
    if (!pair.places.empty()) project_.evidence.push_back(std::move(pair));
  }
}

}  // namespace

std::string pathInProject(const std::string& listed) {
  return isWhole(listed) ? listed : report::wholePath(listed);
}

std::vector<std::string> listOf(const Project& project) {
  std::vector<std::string> list;
  for (const project::Device& device : project.devices) {
    std::vector<std::string> files;
    for (const project::Recording& recording : device.recordings)
      files.push_back(mainFile(recording).path);
    append(list, files);
  }
  return list;
}

void addEntries(Project& project, std::span<const Entry> entries) {
  std::vector<project::Device> devices;
  std::map<int, std::size_t> deviceAt;  // entries' devices
  for (const Entry& entry : entries) {
    if (!entry.isFile()) continue;
    const auto [place, isNew] = deviceAt.try_emplace(entry.device, devices.size());
    if (isNew || entry.device < 0) {
      place->second = devices.size();
      devices.emplace_back();
    }
    devices[place->second].recordings.push_back(recordingOf(pathInProject(entry.listed)));
  }
  for (project::Device& device : devices) device.name = deviceName(device.recordings);
  project = project::addDevices(std::move(project), std::move(devices));
}

std::string projectPath(const std::string& folder, const std::string& time) {
  std::string name = "PROJECT--" + time + "--" + project::kEnding;
  std::ranges::replace(name, ':', '-');
  return folder + "/" + name;
}

project::Settings projectSettings(const Settings& settings, const Options& options,
                                  project::Settings before) {
  before.tolerance = settings.tolerance;
  before.mode = settings.mode;
  before.bySound = options.align;
  // as it is written: the nearest double to the float would show as 29.969999313354492
  before.framesPerSecond.reset();
  if (settings.framesPerSecond > 0)
    before.framesPerSecond = std::round(settings.framesPerSecond * 1000.0) / 1000;
  before.frameSize.reset();
  if (settings.width > 0 && settings.height > 0)
    before.frameSize = project::FrameSize{settings.width, settings.height};
  if (options.drift) before.drift = *options.drift;
  if (options.replaceAudio) before.replaceAudio = *options.replaceAudio;
  if (options.cameraSound) before.cameraSound = *options.cameraSound;
  before.formats = options.formats;
  before.compactXmeml = options.compactXmeml;
  return before;
}

void fillProject(Project& project, const Findings& findings, std::span<const Id> again) {
  Filling(project, findings, again).run();
}

}  // namespace run
