#include "app/files/recording_model.h"

#include <QFileInfo>
#include <QLocale>
#include <algorithm>

#include "app/clock_text.h"
#include "app/files/animal_model.h"
#include "app/files/file_list.h"

namespace app {

RecordingModel::RecordingModel(QObject* parent) : RecordingModel(probeMedia, parent) {}

RecordingModel::RecordingModel(MediaFactsCache::Probe probe, QObject* parent)
    : QIdentityProxyModel(parent), cache_(std::move(probe)) {
  connect(&cache_, &MediaFactsCache::learned, this, &RecordingModel::factsLearned);
  // named one by one: from a table, Windows takes the address of a stub, which is no signal
  connect(this, &QAbstractItemModel::rowsInserted, this, &RecordingModel::structureMoved);
  connect(this, &QAbstractItemModel::rowsRemoved, this, &RecordingModel::structureMoved);
  connect(this, &QAbstractItemModel::modelReset, this, &RecordingModel::structureMoved);
}

void RecordingModel::setSourceModel(QAbstractItemModel* source) {
  if (sourceModel()) disconnect(sourceModel(), nullptr, this, nullptr);
  if (source) {
    // before the proxy's own connections: views that it tells must find the new structure
    const auto stale = [this] { stale_ = true; };
    connect(source, &QAbstractItemModel::rowsInserted, this, stale);
    connect(source, &QAbstractItemModel::rowsRemoved, this, stale);
    connect(source, &QAbstractItemModel::modelReset, this, stale);
  }
  QIdentityProxyModel::setSourceModel(source);
  stale_ = true;
  structureMoved();
}

const std::vector<ListRow>& RecordingModel::rows() const {
  if (stale_) {
    QStringList entries;
    for (int row = 0; row < rowCount(); ++row) entries << entry(row);
    rows_ = structureOf(entries);
    stale_ = false;
  }
  return rows_;
}

QString RecordingModel::entry(int row) const {
  return QIdentityProxyModel::data(index(row, 0), AnimalModel::kTypeRole).toString();
}

std::optional<MediaFacts> RecordingModel::factsOf(int row) const {
  return rows()[static_cast<std::size_t>(row)].edge == ListRow::NoEdge ? cache_.facts(entry(row))
                                                                       : std::nullopt;
}

QString RecordingModel::kindText(int row) const {
  const auto facts = factsOf(row);
  if (!facts || !facts->readable) return {};
  if (facts->frameRate <= 0) return tr("Sound");
  return tr("Picture · %1 fps").arg(QLocale::c().toString(facts->frameRate, 'g', 5));
}

QVariant RecordingModel::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
  const ListRow& row = rows()[static_cast<std::size_t>(index.row())];
  switch (role) {
    case EdgeRole:
      return row.edge;
    case InGroupRole:
      return row.group > 0;
    case GroupNumberRole:
      return row.group;
    case GroupSizeRole:
      return row.recordings;
    case NameRole:
      return QFileInfo(entry(index.row())).fileName();
    case FolderRole:
      return QFileInfo(entry(index.row())).path();
    case KindRole:
      return kindText(index.row());
    case LengthRole: {
      const auto facts = factsOf(index.row());
      return facts && facts->seconds > 0 ? clockText(facts->seconds) : QString();
    }
    case ReadableRole:
      return factsOf(index.row()).value_or(MediaFacts{true, 0, 0, 0, 0}).readable;
    default:
      return QIdentityProxyModel::data(index, role);
  }
}

QHash<int, QByteArray> RecordingModel::roleNames() const {
  return {{AnimalModel::kTypeRole, "type"}, {EdgeRole, "edge"},           {InGroupRole, "inGroup"},
          {GroupNumberRole, "groupNumber"}, {GroupSizeRole, "groupSize"}, {NameRole, "name"},
          {FolderRole, "folder"},           {KindRole, "kind"},           {LengthRole, "length"},
          {ReadableRole, "readable"}};
}

int RecordingModel::recordings() const {
  return static_cast<int>(std::count_if(rows().begin(), rows().end(), [](const ListRow& row) {
    return row.edge == ListRow::NoEdge;
  }));
}

int RecordingModel::devices() const {
  return static_cast<int>(std::count_if(rows().begin(), rows().end(), [](const ListRow& row) {
    return row.edge == ListRow::NoEdge ? row.group == 0
                                       : row.edge == ListRow::GroupBegin && row.recordings > 0;
  }));
}

void RecordingModel::remove(int row) {
  auto* list = qobject_cast<AnimalModel*>(sourceModel());
  if (!list || row < 0 || row >= rowCount()) return;
  const ListRow at = rows()[static_cast<std::size_t>(row)];
  if (at.edge == ListRow::NoEdge) return list->removeEntries(row, 1);
  list->removeEntries(at.first, at.closed ? at.last - at.first + 1 : 1);
}

void RecordingModel::structureMoved() {
  if (!structureAnnounced_) return;  // many rows may come in one go; they are announced once
  structureAnnounced_ = false;
  QMetaObject::invokeMethod(this, &RecordingModel::announceStructure, Qt::QueuedConnection);
}

void RecordingModel::announceStructure() {
  structureAnnounced_ = true;
  if (rowCount() > 0) {
    Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, 0),
                       {EdgeRole, InGroupRole, GroupNumberRole, GroupSizeRole});
  }
  findFirstVideo();
  Q_EMIT structureChanged();
}

void RecordingModel::factsLearned() {
  if (!factsAnnounced_) return;
  factsAnnounced_ = false;
  QMetaObject::invokeMethod(this, &RecordingModel::announceFacts, Qt::QueuedConnection);
}

void RecordingModel::announceFacts() {
  factsAnnounced_ = true;
  if (rowCount() > 0) {
    Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, 0), {KindRole, LengthRole, ReadableRole});
  }
  findFirstVideo();
}

void RecordingModel::findFirstVideo() {
  MediaFacts first;
  for (int row = 0; row < rowCount() && first.frameRate <= 0; ++row) {
    first = factsOf(row).value_or(MediaFacts{});
  }
  if (first.frameRate <= 0) first = {};
  firstVideo_ = first;
  Q_EMIT factsChanged();
}

}  // namespace app
