#include <algorithm>
#include <atomic>

#include "app/core_run.h"
#include "app/documents_list.h"
#include "app/pump.h"
#include "app/run_session.h"
#include "app/workspace.h"
#include "project/project_file.h"
#include "run/results_folder.h"

namespace app {

bool Workspace::open(const QUrl& file) {
  const QString path = file.toLocalFile();
  project::LoadedProject loaded = project::loadProject(path.toStdString());
  setProblem(QString::fromStdString(loaded.error));
  if (!loaded.project) return false;
  history_ = project::History(std::move(*loaded.project));
  path_ = path;
  failures_ = {};
  setDocumentsFolder({});  // where its documents are
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
  if (writing_ || runSession().running()) return false;
  const QString wanted = folder.isEmpty() ? documentsFolder_ : folder.toLocalFile();
  std::string place = wanted.isEmpty() ? project().written.folder : wanted.toStdString();
  if (place.empty()) place = run::resultsFolder();  // it was never written
  const project::Project as = project();
  setWriting(true);
  std::atomic<bool> cancelled = false;
  run::Outcome outcome;
  whilePumping([&] { outcome = exportCore(as, place, cancelled); }, [&] { cancelled = true; });
  setWriting(false);
  takeWritten(outcome, place, as);
  return std::ranges::any_of(outcome.outputs, isDocument);
}

void Workspace::takeWritten(const run::Outcome& outcome, const std::string& folder,
                            const project::Project& as) {
  project::Project next = project();
  next.written.folder = folder;
  next.written.files = outcome.outputs;
  next.written.notices = outcome.notices;
  history_.amend(std::move(next));
  if (std::ranges::any_of(outcome.outputs, isDocument)) exported_ = as;
  noteFailures(outcome);
  show();
}

/// The first of them stands in the window's head; all are among its notes.
void Workspace::noteFailures(const run::Outcome& outcome) {
  failures_ = {outcome.failures, outcome.refused};
  QString problem;
  if (!outcome.failures.empty()) problem = QString::fromStdString(outcome.failures.front());
  if (const auto more = static_cast<int>(outcome.failures.size()) - 1; more > 0)
    problem += " " + tr("(%n more among the notes)", nullptr, more);
  setProblem(problem);
}

void Workspace::setWriting(bool writing) {
  writing_ = writing;
  Q_EMIT writingChanged();
}

void Workspace::setDocumentsFolder(const QString& folder) {
  if (folder == documentsFolder_) return;
  documentsFolder_ = folder;
  Q_EMIT documentsFolderChanged();
}

void Workspace::setSettings(const project::Settings& settings) {
  if (settings == project().settings) return;
  project::Project next = project();
  next.settings = settings;
  history_.amend(std::move(next));
  Q_EMIT changed();
}

}  // namespace app
