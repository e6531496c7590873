#include <cstdlib>

#include "run/desktop.h"
#include "run/wide_text.h"

namespace run {

void SystemDesktop::command(const std::string& line) {
  if (isOneCommand(line)) (void)_wsystem(widened(line).c_str());
}

void SystemDesktop::show(const std::string&) {}

}  // namespace run
