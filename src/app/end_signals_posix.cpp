#include <fcntl.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QSocketNotifier>
#include <csignal>

#include "app/end_signals.h"

namespace app {
namespace {

int ends[2] = {-1, -1};  // of a pipe: what a signal handler may do is write to it

extern "C" void onEndSignal(int signal) {
  const char number = static_cast<char>(signal);
  (void)!write(ends[1], &number, 1);
  std::signal(signal, SIG_DFL);
}

void quit() {
  char number = 0;
  if (read(ends[0], &number, 1) == 1) QCoreApplication::exit(128 + number);
}

}  // namespace

void watchForEndSignals() {
  if (ends[0] >= 0 || pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0) return;
  auto* arrival = new QSocketNotifier(ends[0], QSocketNotifier::Read, QCoreApplication::instance());
  QObject::connect(arrival, &QSocketNotifier::activated, quit);
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) std::signal(signal, onEndSignal);
}

}  // namespace app
