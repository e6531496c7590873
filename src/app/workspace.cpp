#include "app/workspace.h"

#include <QFileInfo>
#include <QJSEngine>
#include <algorithm>
#include <cmath>
#include <utility>

#include "app/clip_facts.h"
#include "app/core_run.h"
#include "app/documents_list.h"
#include "app/files/file_list.h"
#include "app/files/listing.h"
#include "project/edit.h"
#include "project/look_up.h"
#include "project/project_file.h"

namespace app {
namespace {

using project::Id;

std::vector<Id> idsOf(const QList<int>& recordings) {
  return {recordings.begin(), recordings.end()};
}

}  // namespace

Workspace::Workspace() {
  // the bridge adds its lines one by one; they are looked at together
  const auto moved = [this] {
    if (writingList_ || listMoved_) return;
    listMoved_ = true;
    QMetaObject::invokeMethod(this, &Workspace::fromList, Qt::QueuedConnection);
  };
  connect(&fileModel, &QAbstractItemModel::rowsInserted, this, moved);
  connect(&fileModel, &QAbstractItemModel::rowsRemoved, this, moved);
  connect(&fileModel, &QAbstractItemModel::modelReset, this, moved);
}

void Workspace::fromList() {
  listMoved_ = false;
  const QStringList entries = fileModel.entries();
  if (entries == entriesOf(project())) return;
  advance(withEntries(project(), entries), entries.isEmpty() ? tr("Clear list") : tr("Add files"));
}

void Workspace::toList() {
  const QStringList entries = entriesOf(project());
  if (listMoved_ || entries == fileModel.entries()) return;
  writingList_ = true;
  fileModel.replaceEntries(entries);
  writingList_ = false;
}

void Workspace::addFiles(const QStringList& paths, bool oneDevice,
                         const QHash<QString, QString>& models) {
  if (listMoved_) fromList();  // what the bridge has added belongs to the project by now
  advance(withFiles(project(), paths, oneDevice, models), tr("Add files"));
}

Workspace* Workspace::create(QQmlEngine*, QJSEngine*) {
  QJSEngine::setObjectOwnership(&workspace(), QJSEngine::CppOwnership);
  return &workspace();
}

QString Workspace::name() const { return QFileInfo(path_).completeBaseName(); }

bool Workspace::edited() const {
  return exported_.groups != project().groups || exported_.devices != project().devices;
}

void Workspace::advance(project::Project next, const QString& what) {
  history_.advance(std::move(next), what.toStdString());
  show();
}

void Workspace::take(const RunAnswer& answer) {
  sounds_ = keptSounds(answer.project);
  for (const auto& [path, sound] : soundsOf(answer.outcome)) sounds_[path] = sound;
  keepsSounds_ = answer.sounds;
  // with what was added while it ran
  history_.advance(withFiles(answer.project, entriesOf(project()), false),
                   tr("Synchronise").toStdString());
  exported_ = project();
  noteSavedBy(answer);
  show();
}

/// A run saves its project beside its documents; that file is this project's until it gets another.
void Workspace::noteSavedBy(const RunAnswer& answer) {
  if (answer.outcome.project.empty()) return;
  const QString saved = QString::fromStdString(answer.outcome.project);
  if (path_.isEmpty() || savedByRun_) path_ = saved;
  savedByRun_ = path_ == saved;
  if (savedByRun_) history_.noteSaved();
}

void Workspace::clear() {
  history_ = {};
  sounds_.clear();
  exported_ = {};
  path_.clear();
  listMoved_ = false;
  show();
  toList();
}

void Workspace::undo() {
  history_.undo();
  show();
}

void Workspace::redo() {
  history_.redo();
  show();
}

QString Workspace::called(const QString& what, const QList<int>& recordings) const {
  if (recordings.size() != 1) return tr("%1 %2 clips").arg(what).arg(recordings.size());
  return tr("%1 %2").arg(what, facts(recordings.front()).value("name").toString());
}

void Workspace::move(const QList<int>& recordings, double seconds) {
  advance(project::moveClips(project(), idsOf(recordings), seconds),
          called(tr("Move"), recordings));
}

void Workspace::place(int recording, int group, double startSeconds) {
  advance(project::placeClip(project(), recording, group, startSeconds),
          called(tr("Place"), {recording}));
}

void Workspace::unplace(const QList<int>& recordings) {
  advance(project::unplaceClips(project(), idsOf(recordings)), called(tr("Take out"), recordings));
}

bool Workspace::all(const QList<int>& recordings, bool project::Clip::*is) const {
  return std::ranges::all_of(recordings, [&](int recording) {
    const project::Clip* clip = project::clipOf(project(), recording);
    return clip && clip->*is;
  });
}

void Workspace::confirm(const QList<int>& recordings) {
  const bool on = !all(recordings, &project::Clip::confirmed);
  advance(project::confirmClips(project(), idsOf(recordings), on),
          called(tr("Confirm"), recordings));
}

void Workspace::exclude(const QList<int>& recordings) {
  const bool on = !all(recordings, &project::Clip::excluded);
  advance(project::excludeClips(project(), idsOf(recordings), on),
          called(tr("Exclude"), recordings));
}

void Workspace::pin(const QList<int>& recordings) {
  const bool on = !all(recordings, &project::Clip::pinned);
  advance(project::pinClips(project(), idsOf(recordings), on), called(tr("Pin"), recordings));
}

void Workspace::toNextPlace(int recording) {
  constexpr double kSame = 0.02;  // seconds; nearer places are one
  const auto places = project::likelyPlaces(project(), recording);
  if (places.empty()) return;
  const project::Clip* clip = project::clipOf(project(), recording);
  const auto here = std::ranges::find_if(places, [&](const project::LikelyPlace& place) {
    return clip && place.group == project::groupOf(project(), recording)->id &&
           std::abs(place.startSeconds - clip->startSeconds) < kSame;
  });
  const auto next = here == places.end() || here + 1 == places.end() ? places.begin() : here + 1;
  place(recording, next->group, next->startSeconds);
}

double Workspace::snapped(int recording, double seconds, double reach) const {
  const project::Clip* clip = project::clipOf(project(), recording);
  if (!clip) return seconds;
  const Id group = project::groupOf(project(), recording)->id;
  double best = seconds, nearest = reach;
  for (const project::LikelyPlace& place : project::likelyPlaces(project(), recording)) {
    const double by = place.startSeconds - clip->startSeconds;
    if (place.group != group || std::abs(by - seconds) >= nearest) continue;
    nearest = std::abs(by - seconds);
    best = by;
  }
  return best;
}

QList<double> Workspace::likelyStarts(int recording) const {
  QList<double> starts;
  const project::Group* group = project::groupOf(project(), recording);
  if (!group || group->clips.empty()) return starts;
  const double origin =
      std::ranges::min_element(group->clips, {}, &project::Clip::startSeconds)->startSeconds;
  for (const project::LikelyPlace& place : project::likelyPlaces(project(), recording))
    if (place.group == group->id) starts << place.startSeconds - origin;
  return starts;
}

QVariantMap Workspace::facts(int recording) const { return clipFacts(project(), recording); }

int Workspace::bestMatch(int recording) const {
  const project::Clip* clip = project::clipOf(project(), recording);
  return clip && !clip->matchedWith.empty() ? clip->matchedWith.front() : 0;
}

std::vector<project::Id> Workspace::takeAgain() {
  const QList<int> again = std::exchange(again_, {});
  return {again.begin(), again.end()};
}

void Workspace::renameDevice(int device, const QString& name) {
  const QString wanted = name.simplified();
  if (wanted.isEmpty()) return;
  advance(project::renameDevice(project(), device, wanted.toStdString()),
          tr("Rename %1").arg(wanted));
}

bool Workspace::open(const QUrl& file) {
  const QString path = file.toLocalFile();
  project::LoadedProject loaded = project::loadProject(path.toStdString());
  setProblem(QString::fromStdString(loaded.error));
  if (!loaded.project) return false;
  history_ = project::History(std::move(*loaded.project));
  path_ = path;
  exported_ = project();
  sounds_ = keptSounds(project());
  if (!loaded.missing.empty())
    setProblem(tr("%n recording(s) could not be found again", nullptr,
                  static_cast<int>(loaded.missing.size())) +
               ": " + QString::fromStdString(loaded.missing.front()));
  show();
  Q_EMIT opened();
  return true;
}

bool Workspace::save() { return !path_.isEmpty() && saveAs(QUrl::fromLocalFile(path_)); }

bool Workspace::saveAs(const QUrl& file) {
  QString path = file.toLocalFile();
  if (!project::isProjectPath(path.toStdString())) path += project::kEnding;
  const report::Status status = project::saveProject(project(), path.toStdString());
  setProblem(QString::fromStdString(status.error));
  if (!status.ok()) return false;
  savedByRun_ = savedByRun_ && path == path_;
  path_ = path;
  history_.noteSaved();
  Q_EMIT changed();
  return true;
}

bool Workspace::exportTo(const QUrl& folder) {
  const std::string place =
      folder.isEmpty() ? project().written.folder : folder.toLocalFile().toStdString();
  const run::Outcome outcome = exportCore(project(), place);
  project::Project next = project();
  next.written.folder = place;
  next.written.files = outcome.outputs;
  next.written.notices = outcome.notices;
  history_.amend(std::move(next));
  const bool written = std::ranges::any_of(outcome.outputs, isDocument);
  if (written) exported_ = project();
  setProblem(written || outcome.notices.empty() ? QString()
                                                : QString::fromStdString(outcome.notices.front()));
  show();
  return written;
}

void Workspace::show() {
  result_.show(project(), sounds_);
  if (shown_ != project().devices) {
    shown_ = project().devices;
    toList();
    Q_EMIT devicesChanged();
  }
  Q_EMIT changed();
}

void Workspace::setProblem(const QString& problem) {
  problem_ = problem;
  Q_EMIT problemChanged();
}

Workspace& workspace() {
  static auto* one = new Workspace;
  return *one;
}

}  // namespace app
