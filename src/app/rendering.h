#pragma once

#include <QQuickWindow>
#include <QStringList>
#include <QUrl>

namespace app {

inline constexpr char kSoftwareOption[] = "--software";

/// Draws without a graphics driver if `arguments` say so. To be called before any window is made.
void chooseRendering(const QStringList& arguments);

/// Should `window` find no graphics driver that it can draw with, the program starts anew with the
/// option and `files`, and this one ends. Does nothing if `arguments` hold the option.
void fallBackToSoftware(QQuickWindow& window, const QStringList& arguments,
                        const QList<QUrl>& files);

}  // namespace app
