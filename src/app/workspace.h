#pragma once

#include <QList>
#include <QObject>
#include <QQmlEngine>
#include <QString>
#include <QUrl>
#include <QVariantMap>
#include <functional>
#include <memory>

#include "app/result_model.h"
#include "app/run_job.h"
#include "app/sound_paths.h"
#include "project/history.h"

namespace app {

/// The project that the window shows and edits, with every step back and forth. It hands what the
/// user does to the functions of `project` and tells the window what has changed. Recordings,
/// devices and groups are named by their numbers. Lives in the GUI thread.
class Workspace final : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_SINGLETON
  Q_PROPERTY(app::ResultModel* result READ result CONSTANT)
  Q_PROPERTY(QString name READ name NOTIFY changed)
  Q_PROPERTY(bool unsaved READ unsaved NOTIFY changed)
  Q_PROPERTY(QString undoName READ undoName NOTIFY changed)
  Q_PROPERTY(QString redoName READ redoName NOTIFY changed)
  Q_PROPERTY(bool edited READ edited NOTIFY changed)
  Q_PROPERTY(QString problem READ problem NOTIFY problemChanged)
  Q_PROPERTY(bool writing READ writing NOTIFY writingChanged)
  Q_PROPERTY(QString refusal READ refusal NOTIFY changed)
  Q_PROPERTY(QString documentsFolder READ documentsFolder WRITE setDocumentsFolder NOTIFY
                 documentsFolderChanged)

 public:
  static Workspace* create(QQmlEngine*, QJSEngine*);  // the program's one, for the document

  const project::Project& project() const { return history_.now(); }
  const SoundPaths& sounds() const { return sounds_; }
  ResultModel* result() { return &result_; }
  QString name() const;  // of the project's file; empty: none yet
  bool unsaved() const { return history_.changed(); }
  QString undoName() const { return QString::fromStdString(history_.undoName()); }
  QString redoName() const { return QString::fromStdString(history_.redoName()); }
  /// Whether places differ from what the documents on the disk say.
  bool edited() const;
  QString problem() const { return problem_; }  // what went wrong last, for people
  bool writing() const { return writing_; }     // while documents are written
  QString refusal() const;  // why no run would take this many recordings; mostly empty
  /// Where the next documents go, a whole path; empty: where the results of a run go.
  QString documentsFolder() const { return documentsFolder_; }
  void setDocumentsFolder(const QString& folder);
  Q_INVOKABLE void chooseFolder(const QUrl& folder) { setDocumentsFolder(folder.toLocalFile()); }
  /// How documents are to be made from now on; no step that can be undone.
  void setSettings(const project::Settings& settings);

  /// Goes on to `next`, a step called `what`.
  void advance(project::Project next, const QString& what);
  /// Takes over what a run found; it can be undone as one step.
  void take(const RunAnswer& answer);
  /// Adds files: as one device, or in devices as folders and names tell, and a moment later, when
  /// the files were asked for it, makes and models.
  void addFiles(const QStringList& paths, bool oneDevice);
  /// Starts again with an empty project.
  Q_INVOKABLE void clear();

  Q_INVOKABLE void undo();
  Q_INVOKABLE void redo();

  // Clips.
  Q_INVOKABLE void move(const QList<int>& recordings, double seconds);
  Q_INVOKABLE void place(int recording, int group, double startSeconds);
  Q_INVOKABLE void unplace(const QList<int>& recordings);
  Q_INVOKABLE void confirm(const QList<int>& recordings);
  Q_INVOKABLE void exclude(const QList<int>& recordings);
  Q_INVOKABLE void pin(const QList<int>& recordings);
  /// Puts a clip to the next place where its sound may fit, in the order of what speaks for them.
  Q_INVOKABLE void toNextPlace(int recording);
  /// By how many seconds a clip moved by `seconds` has to be moved to stand where its sound fits,
  /// if such a place is within `reach` seconds; `seconds` itself if there is none.
  Q_INVOKABLE double snapped(int recording, double seconds, double reach) const;
  /// The starts at which a recording's sound may fit, on the timeline that is shown.
  Q_INVOKABLE QList<double> likelyStarts(int recording) const;
  /// What is known of a recording's place, in words: name, device, place, exactness, confidence,
  /// state, matched, drift, and whether it is confirmed, pinned or excluded.
  Q_INVOKABLE QVariantMap facts(int recording) const;
  /// The one of these clips' matches that speaks most for its place; 0 if there is none.
  Q_INVOKABLE int bestMatch(int recording) const;

  /// The next run places these recordings alone; all others are taken for the truth.
  Q_INVOKABLE void placeAgain(const QList<int>& recordings) { again_ = recordings; }
  /// What the next run is to place alone; asked once.
  std::vector<project::Id> takeAgain();

  // Devices.
  Q_INVOKABLE void renameDevice(int device, const QString& name);

  // Files.
  Q_INVOKABLE bool open(const QUrl& file);
  Q_INVOKABLE bool save();
  Q_INVOKABLE bool saveAs(const QUrl& file);
  /// Writes the documents again, as the project stands, into `folder`; an empty one: where the
  /// user wants them, else where they are. Returns when they are written; until then the calling
  /// GUI thread handles events.
  Q_INVOKABLE bool exportTo(const QUrl& folder);
  /// Forgets sounds that are no longer kept.
  void forgetLostSounds();

 Q_SIGNALS:
  void changed();
  void problemChanged();
  void opened();
  void writingChanged();
  void documentsFolderChanged();
  /// Devices or recordings have come, gone or changed their order.
  void devicesChanged();

 private:
  friend Workspace& workspace();
  Workspace();  // by nobody else: an engine that could, would make one of its own
  void show();
  void noteSavedBy(const RunAnswer& answer);
  void noteFailures(const run::Outcome& outcome);
  void takeWritten(const run::Outcome& outcome, const std::string& folder,
                   const project::Project& as);
  void learnModels(const QStringList& files,
                   const std::function<project::Project(const QHash<QString, QString>&)>& again);
  void toList();
  void fromList();
  QString called(const QString& what, const QList<int>& recordings) const;
  bool all(const QList<int>& recordings, bool project::Clip::*is) const;
  void setProblem(const QString& problem);
  void setWriting(bool writing);
  void step(void (project::History::*go)());

  project::History history_;
  SoundPaths sounds_;
  std::shared_ptr<void> keepsSounds_;
  ResultModel result_;
  QList<int> again_;
  QString path_;
  QString problem_;
  QString documentsFolder_;
  Failures failures_;
  project::Project exported_;           // as the documents have it
  std::vector<project::Device> shown_;  // the devices as the window knows them
  bool savedByRun_ = false;             // what `path_` names
  bool writing_ = false;
  bool writingList_ = false;
  bool listMoved_ = false;
};

/// The program's one workspace; never destroyed.
Workspace& workspace();

}  // namespace app
