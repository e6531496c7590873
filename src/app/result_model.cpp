#include "app/result_model.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <algorithm>

#include "app/documents_list.h"
#include "app/result_texts.h"
#include "project/look_up.h"

namespace app {
namespace {

QVariantList leftOutRow(const project::Recording& recording, bool usable) {
  const QString path = QString::fromStdString(project::mainFile(recording).path);
  const project::Reason reason = recording.leftOut.value_or(project::Reason{});
  return {recording.id,
          QFileInfo(path).fileName(),
          path,
          usable ? ResultModel::tr("Stands alone") : ResultModel::tr("Cannot be used"),
          usable,
          asSentence(reason.reason),
          asSentence(reason.remedy)};
}

/// What cannot be used first: there is something to be done about it.
QList<QVariantList> leftOutRows(const project::Project& project) {
  QList<QVariantList> unusable, unplaced;
  for (const project::Recording* recording : project::allRecordings(project)) {
    const project::State state = project::stateOf(project, *recording);
    if (state == project::State::unusable) unusable << leftOutRow(*recording, false);
    if (state == project::State::unplaced) unplaced << leftOutRow(*recording, true);
  }
  return unusable + unplaced;
}

/// What was not written or begun first.
QList<QVariantList> noticeRows(const project::Project& project, const Failures& failures) {
  QList<QVariantList> rows;
  for (const std::string& text : failures.sentences)
    rows << QVariantList{QString::fromStdString(text), true};
  for (const std::string& text : project.written.notices)
    if (std::ranges::find(failures.sentences, text) == failures.sentences.end())
      rows << QVariantList{QString::fromStdString(text), false};
  return rows;
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

void ResultModel::show(const project::Project& project, const SoundPaths& sounds,
                       const Failures& failures) {
  failures_ = failures;
  showGroups(project, sounds);
  leftOut_.setRows(leftOutRows(project));
  documents_.setRows(documentRows(project.written, leftOut_.rowCount() > 0));
  notices_.setRows(noticeRows(project, failures));
  folder_ = QString::fromStdString(project.written.folder);
  summary_ = summaryOf(project);
  unsureCount_ = tallyOf(project).unsure;
  endState_ = EndState::of(project, failures);
  Q_EMIT changed();
}

void ResultModel::showGroups(const project::Project& project, const SoundPaths& sounds) {
  const bool same = std::ranges::equal(project.groups, timelines_, {}, &project::Group::id,
                                       [](const auto& timeline) { return timeline->group(); });
  if (!same) {
    beginResetModel();
    std::vector<std::unique_ptr<TimelineModel>> timelines;
    for (const project::Group& group : project.groups) {
      const auto old = std::ranges::find_if(timelines_, [&](const auto& timeline) {
        return timeline && timeline->group() == group.id;
      });
      timelines.push_back(old != timelines_.end() ? std::move(*old)
                                                  : std::make_unique<TimelineModel>());
      QJSEngine::setObjectOwnership(timelines.back().get(), QJSEngine::CppOwnership);
    }
    // views may still hold the old ones until they have handled the reset
    for (auto& old : timelines_)
      if (old) old.release()->deleteLater();
    timelines_ = std::move(timelines);
  }
  for (std::size_t i = 0; i < timelines_.size(); ++i)
    timelines_[i]->show(project, project.groups[i], sounds);
  if (!same)
    endResetModel();
  else if (rowCount() > 0)
    Q_EMIT dataChanged(index(0), index(rowCount() - 1));
}

QString ResultModel::failure() const {
  return failures_.sentences.empty() ? QString()
                                     : QString::fromStdString(failures_.sentences.front());
}

TimelineModel* ResultModel::timeline(int row) const {
  return row < 0 || row >= rowCount() ? nullptr : timelines_[static_cast<std::size_t>(row)].get();
}

int ResultModel::groupOf(int recording) const {
  for (int row = 0; row < rowCount(); ++row)
    if (timeline(row)->rowOf(recording) >= 0) return row;
  return -1;
}

void ResultModel::openFolder() const { QDesktopServices::openUrl(QUrl::fromLocalFile(folder_)); }

void ResultModel::openPlaceOf(const QString& path) {
  QDesktopServices::openUrl(QUrl::fromLocalFile(QFileInfo(path).absolutePath()));
}

void ResultModel::openFile(const QString& path) {
  QDesktopServices::openUrl(QUrl::fromLocalFile(path));
}

QList<QUrl> ResultModel::urls(const QStringList& paths) {
  QList<QUrl> all;
  for (const QString& path : paths) all << QUrl::fromLocalFile(path);
  return all;
}

}  // namespace app
