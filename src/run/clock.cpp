#include "run/clock.h"

#include <ctime>

namespace run {

std::string SystemClock::timeOfDay() {
  const std::time_t now = std::time(nullptr);
  char text[16] = "";
  std::strftime(text, sizeof text, "%H:%M:%S", std::localtime(&now));
  return text;
}

}  // namespace run
