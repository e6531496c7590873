#include "app/appearance.h"

#include <QEvent>
#include <QGuiApplication>
#include <QJSEngine>
#include <QPalette>
#include <QSettings>
#include <algorithm>

namespace app {
namespace {

const QString kKey = "window/appearance";

bool systemIsDark() {
  const QPalette palette = QGuiApplication::palette();
  return palette.color(QPalette::Window).lightness() <
         palette.color(QPalette::WindowText).lightness();
}

}  // namespace

Appearance* Appearance::create(QQmlEngine*, QJSEngine*) {
  QJSEngine::setObjectOwnership(&appearance(), QJSEngine::CppOwnership);
  return &appearance();
}

Appearance::Appearance() {
  const int known = QSettings().value(kKey, int(System)).toInt();
  choice_ = static_cast<Choice>(std::clamp(known, int(System), int(Dark)));
  qGuiApp->installEventFilter(this);
}

bool Appearance::dark() const { return choice_ == System ? systemIsDark() : choice_ == Dark; }

void Appearance::setChoice(Choice choice) {
  if (choice == choice_) return;
  choice_ = choice;
  QSettings().setValue(kKey, int(choice));
  Q_EMIT changed();
}

bool Appearance::eventFilter(QObject* watched, QEvent* event) {
  if (watched == qGuiApp && event->type() == QEvent::ApplicationPaletteChange) Q_EMIT changed();
  return QObject::eventFilter(watched, event);
}

Appearance& appearance() {
  static auto* one = new Appearance;
  return *one;
}

}  // namespace app
