#include "app/files/bin_model.h"

#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <algorithm>

#include "app/clock_text.h"
#include "app/files/listing.h"
#include "app/run_session.h"
#include "app/workspace.h"
#include "project/edit.h"
#include "project/look_up.h"

namespace app {
namespace {

QString pathOf(const project::Recording& recording) {
  return QString::fromStdString(project::mainFile(recording).path);
}

QString shownFolder(const project::Recording& recording) {
  return QDir::toNativeSeparators(QFileInfo(pathOf(recording)).path());
}

}  // namespace

BinModel::BinModel(QObject* parent) : BinModel(probeMedia, parent) {}

BinModel::BinModel(MediaFactsCache::Probe probe, QObject* parent)
    : QAbstractListModel(parent), cache_(std::move(probe)) {
  connect(&cache_, &MediaFactsCache::learned, this, &BinModel::factsLearned);
  connect(&workspace(), &Workspace::devicesChanged, this, &BinModel::rebuild);
  rebuild();
}

const project::Project& BinModel::project() const { return workspace().project(); }

void BinModel::rebuild() {
  beginResetModel();
  rows_.clear();
  QSet<int> present;
  for (const project::Device& device : project().devices) {
    rows_.push_back({device.id, 0});
    present << device.id;
    for (const project::Recording& recording : device.recordings) {
      present << recording.id;
      if (!collapsed_.contains(device.id)) rows_.push_back({device.id, recording.id});
    }
  }
  selected_.intersect(present);
  collapsed_.intersect(present);
  endResetModel();
  Q_EMIT structureChanged();
  Q_EMIT selectionChanged();
  factsLearned();
}

int BinModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

QVariant BinModel::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
  const Row& row = rows_[static_cast<std::size_t>(index.row())];
  if (role == IdRole) return row.recording > 0 ? row.recording : row.device;
  if (role == IsDeviceRole) return row.recording == 0;
  if (role == SelectedRole) return isSelected(row);
  if (role == CollapsedRole) return collapsed_.contains(row.device);
  if (row.recording > 0) {
    const project::Recording* recording = project::findRecording(project(), row.recording);
    return recording ? recordingData(*recording, role) : QVariant();
  }
  const project::Device* device = project::findDevice(project(), row.device);
  return device ? deviceData(*device, role) : QVariant();
}

QVariant BinModel::deviceData(const project::Device& device, int role) const {
  if (role == NameRole) return QString::fromStdString(device.name);
  if (role == CountRole) return static_cast<int>(device.recordings.size());
  if (role == TracksRole) return 0;
  if (role == FolderRole && !device.recordings.empty())
    return shownFolder(device.recordings.front());
  if (role != LengthRole) return QString();
  double seconds = 0;
  for (const project::Recording& recording : device.recordings)
    seconds += factsOf(recording).value_or(MediaFacts{}).seconds;
  return seconds > 0 ? clockText(seconds) : QString();
}

QVariant BinModel::recordingData(const project::Recording& recording, int role) const {
  const auto facts = factsOf(recording);
  switch (role) {
    case NameRole:
      return QFileInfo(pathOf(recording)).fileName();
    case FolderRole:
      return shownFolder(recording);
    case CountRole:
      return 0;
    case TracksRole:
      return static_cast<int>(recording.files.size());
    case KindRole:
      if (!facts || !facts->readable) return QString();
      if (facts->frameRate <= 0) return tr("Sound");
      return tr("Picture · %1 fps").arg(QLocale().toString(facts->frameRate, 'g', 5));
    case LengthRole:
      return facts && facts->seconds > 0 ? clockText(facts->seconds) : QString();
    case ProblemRole:
      if (isRefusedSound(pathOf(recording))) return tr("convert it to WAV first");
      if (!facts || facts->readable) return QString();
      return facts->asked ? tr("not readable as media") : tr("MediaInfo is missing");
    default:
      return {};
  }
}

QHash<int, QByteArray> BinModel::roleNames() const {
  return {{IdRole, "itemId"},           {IsDeviceRole, "isDevice"}, {NameRole, "name"},
          {FolderRole, "folder"},       {CountRole, "count"},       {TracksRole, "tracks"},
          {CollapsedRole, "collapsed"}, {SelectedRole, "selected"}, {KindRole, "kind"},
          {LengthRole, "length"},       {ProblemRole, "problem"}};
}

std::optional<MediaFacts> BinModel::factsOf(const project::Recording& recording) const {
  return cache_.facts(pathOf(recording));
}

int BinModel::recordings() const {
  return static_cast<int>(project::allRecordings(project()).size());
}

int BinModel::devices() const { return static_cast<int>(project().devices.size()); }

QString BinModel::length() const {
  double seconds = 0;
  for (const project::Recording* recording : project::allRecordings(project()))
    seconds += factsOf(*recording).value_or(MediaFacts{}).seconds;
  return seconds > 0 ? clockText(seconds) : QString();
}

bool BinModel::isSelected(const Row& row) const {
  return selected_.contains(row.device) || (row.recording > 0 && selected_.contains(row.recording));
}

std::vector<project::Id> BinModel::chosenDevices() const {
  std::vector<project::Id> chosen;
  for (const project::Device& device : project().devices)
    if (selected_.contains(device.id)) chosen.push_back(device.id);
  return chosen;
}

std::vector<project::Id> BinModel::chosenRecordings() const {
  std::vector<project::Id> chosen;
  for (const project::Device& device : project().devices)
    for (const project::Recording& recording : device.recordings)
      if (selected_.contains(device.id) || selected_.contains(recording.id))
        chosen.push_back(recording.id);
  return chosen;
}

int BinModel::selectedRecordings() const { return static_cast<int>(chosenRecordings().size()); }

int BinModel::selectedDevices() const { return static_cast<int>(chosenDevices().size()); }

void BinModel::select(int row, bool toggle, bool extend) {
  if (row < 0 || row >= rowCount()) return;
  const auto idAt = [this](int at) {
    const Row& one = rows_[static_cast<std::size_t>(at)];
    return one.recording > 0 ? one.recording : one.device;
  };
  if (extend && anchor_ >= 0 && anchor_ < rowCount()) {
    if (!toggle) selected_.clear();
    for (int at = std::min(anchor_, row); at <= std::max(anchor_, row); ++at) selected_ << idAt(at);
  } else {
    const bool was = selected_.contains(idAt(row));
    if (!toggle) selected_.clear();
    if (toggle && was)
      selected_.remove(idAt(row));
    else
      selected_ << idAt(row);
    anchor_ = row;
  }
  announceSelection();
}

void BinModel::selectAll() {
  for (const project::Device& device : project().devices) selected_ << device.id;
  announceSelection();
}

void BinModel::announceSelection() {
  if (rowCount() > 0) Q_EMIT dataChanged(index(0), index(rowCount() - 1), {SelectedRole});
  Q_EMIT selectionChanged();
}

void BinModel::toggleCollapsed(int row) {
  if (row < 0 || row >= rowCount()) return;
  const int device = rows_[static_cast<std::size_t>(row)].device;
  if (!collapsed_.remove(device)) collapsed_ << device;
  rebuild();
}

void BinModel::rename(int row, const QString& name) {
  if (row < 0 || row >= rowCount()) return;
  workspace().renameDevice(rows_[static_cast<std::size_t>(row)].device, name);
}

void BinModel::moveTo(int row) {
  const std::vector<project::Id> chosen = chosenRecordings();
  if (chosen.empty() || row < 0) return;
  if (row >= rowCount()) return split();
  const project::Id device = rows_[static_cast<std::size_t>(row)].device;
  workspace().advance(project::moveRecordings(project(), chosen, device), tr("Move to a device"));
}

void BinModel::join() {
  workspace().advance(project::joinDevices(project(), chosenDevices()), tr("Join devices"));
}

void BinModel::split() {
  const std::vector<project::Id> devices = chosenDevices();
  project::Project next = project();
  for (const project::Id device : devices) next = project::splitWholly(std::move(next), device);
  const std::vector<project::Id> chosen = chosenRecordings();
  if (devices.empty() && !chosen.empty())
    next = project::splitDevice(
        std::move(next), chosen,
        project::nameOfFile(
            project::mainFile(*project::findRecording(project(), chosen.front())).path));
  workspace().advance(std::move(next), tr("Split"));
}

void BinModel::remove() {
  workspace().advance(project::removeRecordings(project(), chosenRecordings()), tr("Remove"));
}

void BinModel::factsLearned() {
  if (!factsAnnounced_) return;  // many may be learned in one go; they are announced once
  factsAnnounced_ = false;
  QMetaObject::invokeMethod(this, &BinModel::announceFacts, Qt::QueuedConnection);
}

void BinModel::announceFacts() {
  factsAnnounced_ = true;
  if (rowCount() > 0)
    Q_EMIT dataChanged(index(0), index(rowCount() - 1), {KindRole, LengthRole, ProblemRole});
  firstFrameRate_ = 0;
  std::unordered_map<std::string, double> lengths;
  for (const project::Recording* recording : project::allRecordings(project())) {
    const MediaFacts facts = factsOf(*recording).value_or(MediaFacts{});
    if (firstFrameRate_ <= 0) firstFrameRate_ = facts.frameRate;
    lengths[project::mainFile(*recording).path] = facts.seconds;
  }
  runSession().setMediaSeconds(std::move(lengths));
  Q_EMIT factsChanged();
}

}  // namespace app
