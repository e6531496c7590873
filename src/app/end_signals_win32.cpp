#include "app/end_signals.h"

namespace app {

void watchForEndSignals() {}

}  // namespace app
