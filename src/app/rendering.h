#pragma once

#include <QQuickWindow>
#include <QStringList>

namespace app {

inline constexpr char kSoftwareOption[] = "--software";

/// Draws without a graphics driver if `arguments` say so. To be called before any window is made.
void chooseRendering(const QStringList& arguments);

/// Should `window` find no graphics driver that it can draw with, the program starts anew with
/// `arguments` (the program's own name left out) and the option, and this one ends.
void fallBackToSoftware(QQuickWindow& window, const QStringList& arguments);

}  // namespace app
