#include "app/window_place.h"

#include <QGuiApplication>
#include <QScreen>
#include <QSettings>

namespace app {
namespace {

constexpr QSize kFirstSize(1280, 800);
constexpr QSize kSmallest(760, 460);  // all of it can be reached; 1080 lines at 200 % have 500
constexpr QSize kFrame(16, 40);       // about what systems draw around a window

const QString kPlaceKey = "window/place";
const QString kLargeKey = "window/maximized";

QRect availablePart(const QRect& wanted) {
  const QScreen* screen = QGuiApplication::screenAt(wanted.center());
  if (!screen) screen = QGuiApplication::primaryScreen();
  const QRect all = screen ? screen->availableGeometry() : QRect(QPoint(), kFirstSize);
  return all.adjusted(kFrame.width() / 2, kFrame.height() - kFrame.width() / 2, -kFrame.width() / 2,
                      -kFrame.width() / 2);
}

void store(const QWindow& window) {
  QSettings settings;
  const bool large = window.windowStates().testFlag(Qt::WindowMaximized);
  settings.setValue(kLargeKey, large);
  if (!large) settings.setValue(kPlaceKey, window.geometry());
}

}  // namespace

QRect placeWithin(const QRect& available, const QRect& wanted, const QSize& first) {
  const bool known = !wanted.isEmpty();
  QRect place(known ? wanted.topLeft() : QPoint(), known ? wanted.size() : first);
  place.setSize(place.size().boundedTo(available.size()));
  if (!known) place.moveCenter(available.center());
  place.moveLeft(std::clamp(place.left(), available.left(), available.right() + 1 - place.width()));
  place.moveTop(std::clamp(place.top(), available.top(), available.bottom() + 1 - place.height()));
  return place;
}

void rememberPlace(QWindow& window) {
  const QSettings settings;
  const QRect wanted = settings.value(kPlaceKey).toRect();
  const QRect available = availablePart(wanted);
  window.setMinimumSize(kSmallest.boundedTo(available.size()));
  window.setGeometry(placeWithin(available, wanted, kFirstSize));
  if (settings.value(kLargeKey).toBool()) window.setWindowStates(Qt::WindowMaximized);
  QObject::connect(qGuiApp, &QGuiApplication::aboutToQuit, &window, [&window] { store(window); });
}

}  // namespace app
