#include "app/result_model.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QUrl>

#include "report/diagnostics.h"
#include "report/profile.h"

namespace app {
namespace {

QString nameOf(const QString& path) { return QFileInfo(path).fileName(); }

QString asSentence(const std::string& text) {
  QString sentence = QString::fromStdString(text);
  if (!sentence.isEmpty()) sentence[0] = sentence[0].toUpper();
  if (!sentence.isEmpty() && !sentence.endsWith('.')) sentence += '.';
  return sentence;
}

QVariantList leftOutRow(const run::LeftOut& file, const QString& kind) {
  const QString path = QString::fromStdString(file.path);
  return {nameOf(path), path, kind, asSentence(file.reason), asSentence(file.remedy)};
}

QList<QVariantList> leftOutRows(const run::Outcome& outcome) {
  QList<QVariantList> rows;
  for (const auto& file : outcome.ignored) rows << leftOutRow(file, ResultModel::tr("Ignored"));
  for (const auto& file : outcome.unsynced) {
    rows << leftOutRow(file, ResultModel::tr("Stands alone"));
  }
  return rows;
}

/// Which program reads the document `name`; empty for the texts and tables of a run.
QString purposeOf(const QString& name) {
  if (name.contains("_fcp--")) return ResultModel::tr("Final Cut Pro 7");
  if (name.contains("_premierePro")) return ResultModel::tr("Premiere Pro");
  if (name.contains("_FCP_X_1.10--")) return ResultModel::tr("Final Cut Pro (FCPXML 1.10)");
  if (name.contains("_FCP_X--")) return ResultModel::tr("Final Cut Pro X");
  if (name.endsWith(".edl")) return ResultModel::tr("Vegas");
  if (name.endsWith(".otio")) return ResultModel::tr("OpenTimelineIO");
  return {};
}

QString contentOf(const QString& name) {
  return name.startsWith("UNSYNCED") ? ResultModel::tr("Recordings without a place")
                                     : ResultModel::tr("Synchronised timeline");
}

QList<QVariantList> documentRows(const run::Outcome& outcome) {
  QList<QVariantList> rows;
  for (const std::string& output : outcome.outputs) {
    const QString path = QString::fromStdString(output);
    const QString purpose = purposeOf(nameOf(path));
    if (!purpose.isEmpty())
      rows << QVariantList{nameOf(path), path, purpose, contentOf(nameOf(path))};
  }
  return rows;
}

QList<QVariantList> noticeRows(const run::Outcome& outcome) {
  QList<QVariantList> rows;
  for (const std::string& text : outcome.notices)
    rows << QVariantList{QString::fromStdString(text)};
  return rows;
}

QString summaryOf(const run::Outcome& outcome) {
  qsizetype synchronised = 0;
  for (const auto& group : outcome.groups) synchronised += std::ssize(group.members);
  const qsizetype all = synchronised + std::ssize(outcome.unsynced) + std::ssize(outcome.ignored);
  if (synchronised == 0) return ResultModel::tr("No two recordings matched.");
  const QString recordings =
      ResultModel::tr("%1 of %2 recordings synchronised").arg(synchronised).arg(all);
  if (outcome.groups.size() == 1) return ResultModel::tr("%1 in one group").arg(recordings);
  return ResultModel::tr("%1 in %2 groups").arg(recordings).arg(outcome.groups.size());
}

}  // namespace

ResultModel::ResultModel(QObject* parent) : QAbstractListModel(parent) {}

int ResultModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(timelines_.size());
}

QVariant ResultModel::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
  TimelineModel* group = timeline(index.row());
  switch (role) {
    case NameRole:
      return group->name();
    case CountRole:
      return group->rowCount();
    case TimelineRole:
      return QVariant::fromValue(group);
    default:
      return {};
  }
}

QHash<int, QByteArray> ResultModel::roleNames() const {
  return {{NameRole, "name"}, {CountRole, "count"}, {TimelineRole, "timeline"}};
}

void ResultModel::show(const run::Outcome& outcome) {
  beginResetModel();
  // views may still hold the old ones until they have handled the reset
  for (auto& old : timelines_) old.release()->deleteLater();
  timelines_.clear();
  for (const auto& group : outcome.groups) {
    timelines_.push_back(std::make_unique<TimelineModel>(group));
    QJSEngine::setObjectOwnership(timelines_.back().get(), QJSEngine::CppOwnership);
  }
  endResetModel();
  leftOut_.setRows(leftOutRows(outcome));
  documents_.setRows(documentRows(outcome));
  notices_.setRows(noticeRows(outcome));
  summary_ = summaryOf(outcome);
  Q_EMIT changed();
}

TimelineModel* ResultModel::timeline(int row) const {
  return row < 0 || row >= rowCount() ? nullptr : timelines_[static_cast<std::size_t>(row)].get();
}

void ResultModel::openSyncedFolder() {
  const std::string folder = report::profileFolder() + report::kSyncedFolder;
  QDesktopServices::openUrl(QUrl::fromLocalFile(QString::fromStdString(folder)));
}

void ResultModel::openPlaceOf(const QString& path) {
  QDesktopServices::openUrl(QUrl::fromLocalFile(QFileInfo(path).absolutePath()));
}

}  // namespace app
