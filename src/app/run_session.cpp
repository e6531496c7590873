#include "app/run_session.h"

#include <QSettings>
#include <cmath>

#include "app/core_run.h"
#include "app/pump.h"
#include "app/workspace.h"

namespace app {
namespace {

const QString kPaceKey = "pace";

/// What the steps of the last run on this computer took.
RunPace rememberedPace() {
  RunPace pace = kFirstPace;
  const QVariantList known = QSettings().value(kPaceKey).toList();
  for (std::size_t i = 0; known.size() == std::ssize(pace) && i < pace.size(); ++i)
    if (const double seconds = known[static_cast<qsizetype>(i)].toDouble();
        seconds > 0 && std::isfinite(seconds))
      pace[i] = seconds;
  return pace;
}

void rememberPace(const RunPace& pace) {
  QVariantList known;
  for (const double seconds : pace) known << seconds;
  QSettings().setValue(kPaceKey, known);
}

}  // namespace

RunSession* RunSession::create(QQmlEngine*, QJSEngine*) {
  QJSEngine::setObjectOwnership(&runSession(), QJSEngine::CppOwnership);
  return &runSession();
}

std::vector<std::string> RunSession::execute(const RunRequest& request, run::Progress& progress) {
  cancelFlag_ = false;
  cancelled_ = false;
  seen_ = RunForecast(mediaSeconds_, rememberedPace());
  clock_.start();
  setRunning(true);
  RunAnswer answer;
  whilePumping([&] { answer = job_(request, progress, cancelFlag_); }, [this] { cancel(); });
  cancelled_ = answer.outcome.cancelled;
  if (!cancelled_) {  // a run that was cancelled leaves the last one alone
    rememberPace(seen_.learned(std::chrono::milliseconds(clock_.elapsed())));
    workspace().take(answer);
  }
  setRunning(false);
  return answer.result;
}

void RunSession::report(run::Stage stage, std::string_view file, int done, int total) {
  const std::lock_guard lock(mutex_);
  latest_ = {stage, QString::fromUtf8(file.data(), static_cast<qsizetype>(file.size())), done,
             total};
  seen_.report(stage, std::string(file), done, total, std::chrono::milliseconds(clock_.elapsed()));
  if (posted_) return;
  posted_ = true;
  QMetaObject::invokeMethod(this, &RunSession::showLatest, Qt::QueuedConnection);
}

void RunSession::showLatest() {
  {
    const std::lock_guard lock(mutex_);
    shown_ = latest_;
    forecast_ = seen_;
    posted_ = false;
  }
  Q_EMIT progressed();
}

QString RunSession::left() const {
  const auto seconds = forecast_.left(std::chrono::milliseconds(clock_.elapsed()));
  if (!seconds) return {};
  if (seconds->count() < 60) return tr("less than a minute left");
  return tr("about %n minute(s) left", nullptr, static_cast<int>(std::ceil(seconds->count() / 60)));
}

void RunSession::cancel() {
  if (!running_) return;
  cancelFlag_ = true;
  Q_EMIT runningChanged();
}

void RunSession::setRunning(bool running) {
  running_ = running;
  shown_ = {};
  forecast_ = {};
  Q_EMIT progressed();
  Q_EMIT runningChanged();
}

RunSession& runSession() {
  static auto* session = new RunSession(runCore);
  return *session;
}

}  // namespace app
