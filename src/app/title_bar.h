#pragma once

#include <QWindow>

namespace app {

/// Has the system draw the title bar of `window` as dark as the window is, where it would draw a light
/// one: Windows goes by the user's setting for programs. Elsewhere does nothing.
void darkenTitleBar(QWindow& window);

}  // namespace app
