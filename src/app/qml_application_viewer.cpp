#include "app/qml_application_viewer.h"

#include <QCoreApplication>
#include <QDebug>
#include <QQmlEngine>
#include <QQuickItem>

#include "report/console.h"

namespace app {

QmlApplicationViewer::QmlApplicationViewer(QWindow* parent)
    : QQuickView(parent), text_(std::make_unique<QString>()) {
  connect(engine(), &QQmlEngine::quit, this, &QWindow::close);
  setResizeMode(QQuickView::SizeRootObjectToView);
}

QmlApplicationViewer::~QmlApplicationViewer() = default;

// "najden" and "najdena" mean "found".
void QmlApplicationViewer::done() {
  qDebug() << "- done ";
  if (set("progressbar", "opacity", "0")) qDebug() << "- najden progressbar";
  if (set("ima1", "opacity", "1")) qDebug() << "- najdena ima1";
  if (named("text3")) {
    qDebug() << "- najdena ima1";
    showDoneCaption();
  }
  if (set("done", "opacity", "1")) qDebug() << "- najdena ima1";
  if (set("newexit", "opacity", "1")) qDebug() << "- najdena ima1";
  if (named("ma3")) qDebug() << "- najdena ima1";
}

void QmlApplicationViewer::stopbar(QString msg) {
  qDebug() << "- stopbar " << msg;
  if (set("progressbar", "opacity", "0")) qDebug() << "- najden progressbar";
  if (set("ima1", "opacity", "1")) qDebug() << "- najdena ima1";
  if (named("text3")) {
    qDebug() << "- najdena ima1";
    showDoneCaption();
  }
  if (set("newexit", "opacity", "1")) qDebug() << "- najdena newexit";
  if (named("ma3")) qDebug() << "- najdena ma3";
  if (set("done", "opacity", "1")) qDebug() << "- najdena ma3";
}

void QmlApplicationViewer::makeprogress(int msg) {
  const unsigned call = ++progressCalls_;
  QCoreApplication::processEvents();
  // "it must get here! the bar's value must be ="
  report::StandardOutput().line("tuka treba da sme! vrednosta na baror treba da =" +
                                std::to_string(msg));
  if (call != progressCalls_) return;  // a later value arrived among the events and is shown
  set("progresbar", "width", msg);
  set("progresbar", "opacity", 1);
  set("progressbar", "opacity", 1);
}

bool QmlApplicationViewer::set(const char* name, const char* property, const QVariant& value) {
  QObject* object = named(name);
  if (object) object->setProperty(property, value);
  return object != nullptr;
}

QObject* QmlApplicationViewer::named(const char* name) const {
  return rootObject() ? rootObject()->findChild<QObject*>(name) : nullptr;
}

void QmlApplicationViewer::showDoneCaption() {
  set("text3", "scale", "1");
  set("text3", "text", "Done!");
}

}  // namespace app
