#include "app/qml_file.h"

#include <QDebug>

#include "app/core_run.h"
#include "app/files/file_list.h"
#include "app/my_thread.h"
#include "app/run_progress.h"
#include "app/run_session.h"
#include "app/workspace.h"
#include "report/console.h"
#include "report/diagnostics.h"
#include "vote/compare.h"

namespace app {
namespace {

const std::string kRule(66, '*');

void say(std::string_view line) { report::StandardOutput().line(line); }

}  // namespace

QMLFile::QMLFile(QObject* parent) : QObject(parent) {}

void QMLFile::kazidekazavrsi(QString message) {
  qDebug() << "STIGNA DO TUKA" << message;  // "it got as far as here"
  Q_EMIT send2gui(message);
}

void QMLFile::skonciapp() {
  qDebug() << "skociappalot";
  Q_EMIT send2gui2();
}

void QMLFile::moveprogressslot(int value) {
  // "this is before the emit"
  qDebug() << "- makeprogress function OK - ova e pred EMIT " << value;
  say("value:" + std::to_string(value));
  Q_EMIT moveprogressignal(value);
  say("emitted moveprogresssignal...");
}

QStringList QMLFile::getFilesSelected() { return pickFiles(); }

QStringList QMLFile::getFilesSelected2() { return pickDeviceFiles(); }

void QMLFile::start_sync(float tolerance, int x, int y, float fps, int premiere) {
  auto* thread = new MyThread;  // idles until the process ends
  connect(thread, &MyThread::finished2, this, &QMLFile::kazidekazavrsi);
  thread->x = x;
  thread->y = y;
  thread->fps = fps;
  thread->tolerance = tolerance;
  thread->premiere = premiere;
  thread->start(QThread::InheritPriority);
  qDebug() << "tuka odi kod za start sync";  // "the code to start the sync goes here"
}

void QMLFile::clearall() { fileModel.clear(); }

vector<std::string> QMLFile::synco(vector<std::string> videofiles, double a_d, int resx, int resy,
                                   float frps, int prem) {
  RunProgress progress(*this, runSession());
  return runSession().execute(
      {std::move(videofiles), a_d, resx, resy, frps, prem, workspace().project(),
       workspace().takeAgain(), workspace().documentsFolder().toStdString()},
      progress);
}

void QMLFile::start_sync2(float tolerance, int x, int y, float fps, int premiere) {
  if (runSession().running()) return;
  say("dobnro e..");  // "it is good"
  const vector<std::string> entries = listedEntries();
  report::appendLogLine("pristisnat Sync IT....");  // "Sync IT was pressed"
  say("sync pressed...");
  say("posle omp..");
  say("dobrata synco funkcija");  // "the good synco function"
  const vector<std::string> result = synco(entries, tolerance, x, y, fps, premiere);
  if (runSession().cancelled()) return;  // nothing to report; the window goes back to idle
  say(kRule);
  say("POSLE SYNCO!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!!");  // "after synco"
  say(kRule);
  say(result.empty() ? std::string() : result.front());
  report::appendLogLine("posle sync it");  // "after sync it"
  reportCore(result);
  Q_EMIT doneit();
}

vector<unsigned long long>* QMLFile::proveriall(int nall, VectorXf traenje, MatrixXLI* all,
                                                vector<vector<int>> device_groups) {
  vote::CompareCalls calls;
  calls.log = [](std::string_view line) { report::appendLogLine(std::string(line)); };
  calls.console = say;
  calls.moveprogressignal = [this](int pixels) { Q_EMIT moveprogressignal(pixels); };
  return vote::proveriall(nall, std::move(traenje), all, std::move(device_groups), calls);
}

vector<std::string> QMLFile::resemplirajgi8000(vector<std::string> videofiles) {
  RunProgress progress(*this, runSession());
  const std::atomic<bool> cancelled = false;
  return convertCore(videofiles, progress, cancelled);
}

}  // namespace app
