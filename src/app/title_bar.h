#pragma once

#include <QWindow>

namespace app {

/// Has the system draw the title bar of `window` as dark or light as the window is: Windows goes by
/// the user's setting for programs. Elsewhere does nothing.
void darkenTitleBar(QWindow& window, bool isDark);

}  // namespace app
