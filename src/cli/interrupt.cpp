#include "cli/interrupt.h"

#include <csignal>

#include "cli/terminal.h"

namespace cli {
namespace {

std::atomic<bool> interruptedFlag = false;
static_assert(std::atomic<bool>::is_always_lock_free);  // a signal handler may set no other

extern "C" void onEndSignal(int signal) {
  interruptedFlag = true;
  std::signal(signal, SIG_DFL);
}

}  // namespace

void watchForInterrupt() {
  for (const int signal : endSignals()) std::signal(signal, onEndSignal);
}

const std::atomic<bool>& interrupted() { return interruptedFlag; }

}  // namespace cli
