#include "app/timeline_model.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QPointer>
#include <QThreadPool>
#include <algorithm>
#include <limits>
#include <unordered_map>

#include "project/look_up.h"

namespace app {
namespace {

struct Origin {
  const project::Device* device = nullptr;
  const project::Recording* recording = nullptr;
};

using Origins = std::unordered_map<project::Id, Origin>;

Origins originsIn(const project::Project& project) {
  Origins origins;
  for (const project::Device& device : project.devices)
    for (const project::Recording& recording : device.recordings)
      origins[recording.id] = {&device, &recording};
  return origins;
}

/// The devices that have clips in the group, in the project's order.
std::vector<const project::Device*> devicesIn(const project::Project& project,
                                              const project::Group& group, const Origins& origins) {
  std::vector<const project::Device*> devices;
  for (const project::Device& device : project.devices)
    if (std::ranges::any_of(group.clips, [&](const project::Clip& clip) {
          const auto origin = origins.find(clip.recording);
          return origin != origins.end() && origin->second.device == &device;
        }))
      devices.push_back(&device);
  return devices;
}

TimelineClip shownClip(const project::Clip& clip, const project::Recording& recording, int lane,
                       double earliest, const SoundPaths& sounds) {
  TimelineClip shown;
  shown.recording = clip.recording;
  shown.lane = lane;
  shown.start = clip.startSeconds - earliest;
  shown.length = recording.lengthSeconds;
  shown.confidence = clip.confidence;
  shown.pinned = clip.pinned;
  shown.soundStart = recording.soundStartSeconds;
  if (recording.files.empty()) return shown;
  shown.path = QString::fromStdString(recording.files.front().path);
  shown.name = QFileInfo(shown.path).fileName();
  const auto sound = sounds.find(recording.files.front().path);
  if (sound != sounds.end()) shown.sound = sound->second;
  return shown;
}

/// The start of the earliest clip, from which all others are shown.
double earliestOf(const project::Group& group) {
  double earliest = std::numeric_limits<double>::infinity();
  for (const project::Clip& clip : group.clips) earliest = std::min(earliest, clip.startSeconds);
  return group.clips.empty() ? 0 : earliest;
}

}  // namespace

void TimelineModel::show(const project::Project& project, const project::Group& group,
                         const SoundPaths& sounds) {
  const Origins origins = originsIn(project);
  const auto devices = devicesIn(project, group, origins);
  origin_ = earliestOf(group);
  std::vector<TimelineClip> clips;
  for (const project::Clip& clip : group.clips) {
    const auto origin = origins.find(clip.recording);
    if (origin == origins.end()) continue;
    const auto lane = std::ranges::find(devices, origin->second.device) - devices.begin();
    clips.push_back(
        shownClip(clip, *origin->second.recording, static_cast<int>(lane), origin_, sounds));
    clips.back().state = project::stateOf(project, *origin->second.recording);
  }
  const bool same = sameRows(clips);
  if (!same) beginResetModel();
  group_ = group.id;
  name_ = QString::fromStdString(group.name);
  lanes_.clear();
  devices_.clear();
  for (const project::Device* device : devices) {
    lanes_ << QString::fromStdString(device->name);
    devices_.push_back(device->id);
  }
  lengthSeconds_ = 0;
  for (const TimelineClip& clip : clips)
    lengthSeconds_ = std::max(lengthSeconds_, clip.start + clip.length);
  if (!same) keepWaveforms(clips);
  clips_ = std::move(clips);
  if (!same) {
    endResetModel();
    readWaveforms();
  } else if (!clips_.empty()) {
    Q_EMIT dataChanged(index(0), index(rowCount() - 1));
  }
  Q_EMIT changed();
}

bool TimelineModel::sameRows(const std::vector<TimelineClip>& clips) const {
  return std::ranges::equal(clips, clips_, [](const TimelineClip& a, const TimelineClip& b) {
    return a.recording == b.recording && a.sound == b.sound;
  });
}

void TimelineModel::keepWaveforms(const std::vector<TimelineClip>& clips) {
  std::vector<Waveform> kept(clips.size());
  for (std::size_t i = 0; i < clips.size(); ++i) {
    const auto old = std::ranges::find(clips_, clips[i].sound, &TimelineClip::sound);
    if (old != clips_.end()) kept[i] = waveforms_[static_cast<std::size_t>(old - clips_.begin())];
  }
  waveforms_ = std::move(kept);
}

void TimelineModel::readWaveforms() {
  for (int row = 0; row < rowCount(); ++row) {
    const std::string path = clips_[static_cast<std::size_t>(row)].sound;
    if (path.empty() || !waveform(row).peaks.isEmpty()) continue;
    QThreadPool::globalInstance()->start([self = QPointer<TimelineModel>(this), row, path] {
      const Waveform waveform = readWaveform(path);
      QMetaObject::invokeMethod(
          QCoreApplication::instance(),
          [self, row, path, waveform] {
            if (self) self->takeWaveform(row, path, waveform);
          },
          Qt::QueuedConnection);
    });
  }
}

void TimelineModel::takeWaveform(int row, const std::string& sound, const Waveform& waveform) {
  if (row >= rowCount() || clips_[static_cast<std::size_t>(row)].sound != sound) return;
  waveforms_[static_cast<std::size_t>(row)] = waveform;
  Q_EMIT dataChanged(index(row), index(row), {WaveformRole});
}

int TimelineModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(clips_.size());
}

QVariant TimelineModel::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
  const TimelineClip& clip = clips_[static_cast<std::size_t>(index.row())];
  switch (role) {
    case NameRole:
      return clip.name;
    case PathRole:
      return clip.path;
    case LaneRole:
      return clip.lane;
    case StartRole:
      return clip.start;
    case LengthRole:
      return clip.length;
    case ConfidenceRole:
      return clip.confidence;
    case StateRole:
      return static_cast<int>(clip.state);
    case WaveformRole:
      return QVariant::fromValue(waveform(index.row()));
    default:
      return {};
  }
}

QHash<int, QByteArray> TimelineModel::roleNames() const {
  return {{NameRole, "name"},   {PathRole, "path"},        {LaneRole, "lane"},
          {StartRole, "start"}, {LengthRole, "length"},    {ConfidenceRole, "confidence"},
          {StateRole, "state"}, {WaveformRole, "waveform"}};
}

std::vector<HeardClip> TimelineModel::heardClips() const {
  std::vector<HeardClip> heard;
  for (int row = 0; row < rowCount(); ++row) {
    const TimelineClip& clip = clips_[static_cast<std::size_t>(row)];
    if (!clip.sound.empty())
      heard.push_back({row, clip.lane, clip.start + clip.soundStart, clip.length - clip.soundStart,
                       clip.sound});
  }
  return heard;
}

int TimelineModel::rowOf(int recording) const {
  const auto found = std::ranges::find(clips_, recording, &TimelineClip::recording);
  return found == clips_.end() ? -1 : static_cast<int>(found - clips_.begin());
}

int TimelineModel::recordingAt(int row) const {
  return row < 0 || row >= rowCount() ? 0 : clips_[static_cast<std::size_t>(row)].recording;
}

int TimelineModel::deviceOfLane(int lane) const {
  return lane < 0 || lane >= std::ssize(devices_) ? 0 : devices_[static_cast<std::size_t>(lane)];
}

double TimelineModel::startOf(int row) const {
  return row < 0 || row >= rowCount() ? 0 : clips_[static_cast<std::size_t>(row)].start;
}

double TimelineModel::endOf(int row) const {
  if (row < 0 || row >= rowCount()) return 0;
  const TimelineClip& clip = clips_[static_cast<std::size_t>(row)];
  return clip.start + clip.length;
}

QList<double> TimelineModel::overlap(int first, int second) const {
  const double begin = std::max(startOf(first), startOf(second));
  return {begin, std::max(begin, std::min(endOf(first), endOf(second)))};
}

int TimelineModel::nextUnsure(int row) const {
  const int count = rowCount();
  for (int i = 1; i <= count; ++i) {
    const int at = (std::max(row, -1) + i) % count;
    if (clips_[static_cast<std::size_t>(at)].state == project::State::lookHere) return at;
  }
  return -1;
}

}  // namespace app
