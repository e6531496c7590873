#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QQmlEngine>
#include <atomic>
#include <mutex>
#include <string>
#include <unordered_map>
#include <vector>

#include "app/run_forecast.h"
#include "app/run_job.h"

namespace app {

/// The run as the window shows it: whether one goes on, how far it is, what the last one found.
/// Lives in the GUI thread; `report` alone may be called from any thread.
class RunSession : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_SINGLETON
  Q_PROPERTY(bool running READ running NOTIFY runningChanged)
  Q_PROPERTY(bool cancelling READ cancelling NOTIFY runningChanged)
  Q_PROPERTY(bool cancelled READ cancelled NOTIFY runningChanged)
  Q_PROPERTY(int stage READ stage NOTIFY progressed)
  Q_PROPERTY(QString file READ file NOTIFY progressed)
  Q_PROPERTY(int done READ doneItems NOTIFY progressed)
  Q_PROPERTY(int total READ total NOTIFY progressed)
  Q_PROPERTY(double fraction READ fraction NOTIFY progressed)
  Q_PROPERTY(QString left READ left NOTIFY progressed)

 public:
  explicit RunSession(RunJob job) : job_(std::move(job)) {}
  static RunSession* create(QQmlEngine*, QJSEngine*);  // the program's one, for the document

  bool running() const { return running_; }
  bool cancelling() const { return running_ && cancelFlag_; }
  bool cancelled() const { return cancelled_; }  // whether the last run was ended early
  int stage() const { return static_cast<int>(shown_.stage); }
  QString file() const { return shown_.file; }
  int doneItems() const { return shown_.done; }
  int total() const { return shown_.total; }
  /// The share of the run that is over, 0 to 1, weighted by what its steps take.
  double fraction() const { return forecast_.fraction(); }
  /// The time left in words; empty while too little has been seen to tell.
  QString left() const;

  /// The lengths in seconds of the files of the runs to come, by their paths.
  void setMediaSeconds(std::unordered_map<std::string, double> seconds) {
    mediaSeconds_ = std::move(seconds);
  }

  /// Replaces what does the runs.
  void setJob(RunJob job) { job_ = std::move(job); }

  /// One whole run, whose result goes to the workspace. Returns when it has ended; until then the
  /// calling GUI thread handles events.
  std::vector<std::string> execute(const RunRequest& request, run::Progress& progress);

  /// Notes how far the run is. The window hears of the latest state only, however often it is
  /// called.
  void report(run::Stage stage, std::string_view file, int done, int total);

  /// Ends the run at its next step.
  Q_INVOKABLE void cancel();

 Q_SIGNALS:
  void runningChanged();
  void progressed();

 private:
  struct Position {
    run::Stage stage = run::Stage::convert;
    QString file;
    int done = 0, total = 0;
  };
  void setRunning(bool running);
  void showLatest();

  RunJob job_;
  std::unordered_map<std::string, double> mediaSeconds_;
  RunForecast forecast_;
  QElapsedTimer clock_;
  Position shown_;
  Position latest_;      // guarded by mutex_
  RunForecast seen_;     // guarded by mutex_
  bool posted_ = false;  // guarded by mutex_
  std::mutex mutex_;
  std::atomic<bool> cancelFlag_ = false;
  bool running_ = false;
  bool cancelled_ = false;
};

/// The program's one session; never destroyed.
RunSession& runSession();

}  // namespace app
