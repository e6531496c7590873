#pragma once

#include <QRect>
#include <QSize>
#include <QWindow>

namespace app {

/// Where a window goes that wants to stand at `wanted` (empty: it has not stood anywhere yet): all
/// of it within `available`, what a screen has to offer beside its bars, and centred at first.
QRect placeWithin(const QRect& available, const QRect& wanted, const QSize& first);

/// Puts `window` where it stood when the program last ended, and remembers where it goes from now
/// on. To be called before it is shown.
void rememberPlace(QWindow& window);

}  // namespace app
