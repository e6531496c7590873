#pragma once

namespace app {

/// From now on Ctrl+C and the system's requests to end quit the application as closing its window
/// does, so that a run is broken off and cleans up; a second request ends it at once. To be called
/// when there is a QCoreApplication. Windows closes the window itself.
void watchForEndSignals();

}  // namespace app
