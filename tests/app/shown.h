#pragma once

#include "tests/quiet_desktop.h"

/// The desktop of all tests of the window: nothing is opened on the one of whoever runs them.
inline QuietDesktop& shownDesktop() {
  static QuietDesktop desktop;
  return desktop;
}
