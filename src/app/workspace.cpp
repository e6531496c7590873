#include "app/workspace.h"

#include <QFileInfo>
#include <QJSEngine>
#include <QRegularExpression>
#include <algorithm>
#include <filesystem>
#include <utility>

#include "app/files/device_models.h"
#include "app/files/file_list.h"
#include "app/files/listing.h"
#include "app/run_session.h"
#include "project/edit.h"
#include "project/look_up.h"
#include "report/files.h"
#include "run/result_list.h"

namespace app {

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
  const project::Project before = project();
  advance(withEntries(before, entries), entries.isEmpty() ? tr("Clear list") : tr("Add files"));
  learnModels(entries, [=](const auto& models) { return withEntries(before, entries, models); });
}

void Workspace::toList() {
  const QStringList entries = entriesOf(project());
  if (listMoved_ || entries == fileModel.entries()) return;
  writingList_ = true;
  fileModel.replaceEntries(entries);
  writingList_ = false;
}

void Workspace::addFiles(const QStringList& paths, bool oneDevice) {
  if (listMoved_) fromList();  // what the bridge has added belongs to the project by now
  const project::Project before = project();
  advance(withFiles(before, paths, oneDevice), tr("Add files"));
  if (!oneDevice)
    learnModels(paths, [=](const auto& models) { return withFiles(before, paths, false, models); });
}

/// Files need not be asked before they are listed. What they tell counts only as long as the user
/// has not sorted them in another way.
void Workspace::learnModels(
    const QStringList& files,
    const std::function<project::Project(const QHash<QString, QString>&)>& again) {
  const auto devices = project().devices;
  deviceModels().learn(files, this, [=, this](const QHash<QString, QString>& models) {
    if (models.isEmpty() || runSession().running() || project().devices != devices) return;
    history_.amend(again(models));
    show();
  });
}

Workspace* Workspace::create(QQmlEngine*, QJSEngine*) {
  QJSEngine::setObjectOwnership(&workspace(), QJSEngine::CppOwnership);
  return &workspace();
}

QString Workspace::name() const {
  static const QRegularExpression kOfARun("^PROJECT--(\\d\\d)-(\\d\\d)-\\d\\d--$");
  const QString file = QFileInfo(path_).completeBaseName();
  const QRegularExpressionMatch run = kOfARun.match(file);
  return run.hasMatch() ? tr("Run of %1:%2").arg(run.captured(1), run.captured(2)) : file;
}

bool Workspace::edited() const {
  project::Settings settings = project().settings;
  settings.tolerance = exported_.settings.tolerance;  // how to listen is not in documents
  settings.mode = exported_.settings.mode;
  return exported_.groups != project().groups || exported_.devices != project().devices ||
         exported_.settings != settings;
}

void Workspace::advance(project::Project next, const QString& what) {
  history_.advance(std::move(next), what.toStdString());
  show();
}

void Workspace::take(const RunAnswer& answer) {
  noteFailures(answer.outcome);
  if (answer.outcome.refused) return show();  // what was found before stays
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
  project::Project empty;
  empty.settings = project().settings;
  history_ = project::History(std::move(empty));
  failures_ = {};
  setProblem({});
  sounds_.clear();
  exported_ = {};
  path_.clear();
  listMoved_ = false;
  show();
  toList();
}

void Workspace::undo() { step(&project::History::undo); }

void Workspace::redo() { step(&project::History::redo); }

/// How documents are made, and which there are, is nothing that steps go back to.
void Workspace::step(void (project::History::*go)()) {
  const project::Settings settings = project().settings;
  const project::Written written = project().written;
  (history_.*go)();
  project::Project here = project();
  here.settings = settings;
  here.written = written;
  history_.amend(std::move(here));
  show();
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

QString Workspace::refusal() const {
  return QString::fromStdString(run::tooManyFiles(project::allRecordings(project()).size()));
}

void Workspace::forgetLostSounds() {
  const auto lost = std::erase_if(sounds_, [](const auto& sound) {
    std::error_code error;
    return !std::filesystem::exists(report::fromUtf8(sound.second), error);
  });
  if (lost > 0) show();
}

void Workspace::show() {
  result_.show(project(), sounds_, failures_);
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
