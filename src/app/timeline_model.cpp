#include "app/timeline_model.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QMap>
#include <QPointer>
#include <QThreadPool>
#include <algorithm>

#include "app/clock_text.h"
#include "app/lane_names.h"
#include "report/text.h"

namespace app {
namespace {

QString fileName(const std::string& path) {
  return QFileInfo(QString::fromStdString(path)).fileName();
}

QString positionText(const run::Member& member) {
  QString text = clockText(member.offsetSeconds, 3);
  if (member.errorSeconds) {
    text += QString::fromUtf8(" ± %1 ms").arg(*member.errorSeconds * 1000, 0, 'f', 1);
  }
  return text;
}

constexpr int kHintColumns = 72;  // of a path; the window is at least 900 pixels wide

QString detailText(const run::Member& member) {
  QStringList lines = {QString::fromStdString(report::elidedMiddle(member.path, kHintColumns)),
                       TimelineModel::tr("Position  %1").arg(positionText(member)),
                       TimelineModel::tr("Length  %1").arg(clockText(member.durationSeconds, 3)),
                       TimelineModel::tr("Confidence  %1 %").arg(qRound(member.confidence * 100))};
  if (member.driftPpm) {
    lines << TimelineModel::tr("Clock drift  %1 ppm").arg(*member.driftPpm, 0, 'f', 1);
  }
  return lines.join('\n');
}

}  // namespace

TimelineModel::TimelineModel(const run::Group& group, QObject* parent)
    : QAbstractListModel(parent), name_(QString::fromStdString(group.name)) {
  for (const run::Member& member : group.members) clips_.push_back({member, 0, {}});
  placeOnLanes();
  nameLanes();
  readWaveforms();
}

void TimelineModel::placeOnLanes() {
  QMap<int, int> laneOfDevice;
  for (Clip& clip : clips_) {
    const int next = static_cast<int>(laneOfDevice.size());
    if (!laneOfDevice.contains(clip.member.device)) laneOfDevice.insert(clip.member.device, next);
    clip.lane = laneOfDevice.value(clip.member.device);
    lengthSeconds_ =
        std::max(lengthSeconds_, clip.member.offsetSeconds + clip.member.durationSeconds);
  }
  lanes_ = QStringList(laneOfDevice.size());
}

void TimelineModel::nameLanes() {
  std::vector<QStringList> paths(static_cast<std::size_t>(lanes_.size()));
  for (const Clip& clip : clips_) {
    paths[static_cast<std::size_t>(clip.lane)] << QString::fromStdString(clip.member.path);
  }
  lanes_ = laneNames(paths);
}

void TimelineModel::readWaveforms() {
  for (int row = 0; row < rowCount(); ++row) {
    const std::string path = clips_[static_cast<std::size_t>(row)].member.soundPath;
    if (path.empty()) continue;
    QThreadPool::globalInstance()->start([self = QPointer<TimelineModel>(this), row, path] {
      const Waveform waveform = readWaveform(path);
      QMetaObject::invokeMethod(
          QCoreApplication::instance(),
          [self, row, waveform] {
            if (self) self->takeWaveform(row, waveform);
          },
          Qt::QueuedConnection);
    });
  }
}

void TimelineModel::takeWaveform(int row, const Waveform& waveform) {
  clips_[static_cast<std::size_t>(row)].waveform = waveform;
  Q_EMIT dataChanged(index(row), index(row), {WaveformRole});
}

int TimelineModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(clips_.size());
}

QVariant TimelineModel::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
  const Clip& clip = clips_[static_cast<std::size_t>(index.row())];
  switch (role) {
    case NameRole:
      return fileName(clip.member.path);
    case PathRole:
      return QString::fromStdString(clip.member.path);
    case LaneRole:
      return clip.lane;
    case StartRole:
      return clip.member.offsetSeconds;
    case LengthRole:
      return clip.member.durationSeconds;
    case ConfidenceRole:
      return clip.member.confidence;
    case DetailRole:
      return detailText(clip.member);
    case WaveformRole:
      return QVariant::fromValue(clip.waveform);
    default:
      return {};
  }
}

QHash<int, QByteArray> TimelineModel::roleNames() const {
  return {{NameRole, "name"},     {PathRole, "path"},        {LaneRole, "lane"},
          {StartRole, "start"},   {LengthRole, "length"},    {ConfidenceRole, "confidence"},
          {DetailRole, "detail"}, {WaveformRole, "waveform"}};
}

}  // namespace app
