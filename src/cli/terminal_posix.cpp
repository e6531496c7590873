#include <sys/ioctl.h>
#include <unistd.h>

#include <array>
#include <csignal>

#include "cli/terminal.h"

namespace cli {

std::vector<std::string> utf8Arguments(int argc, char** argv) { return {argv + 1, argv + argc}; }

void useUtf8Output() {}

int errorTerminalColumns() {
  if (!isatty(STDERR_FILENO)) return 0;
  winsize size{};
  const bool known = ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
  return known ? size.ws_col : 80;
}

std::span<const int> endSignals() {
  static constexpr std::array kSignals = {SIGINT, SIGTERM, SIGHUP};
  return kSignals;
}

}  // namespace cli
