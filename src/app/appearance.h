#pragma once

#include <QObject>
#include <QQmlEngine>

namespace app {

/// Whether the window is light or dark: as the system is, or as the user wants it to be, which is
/// remembered.
class Appearance final : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_SINGLETON
  Q_PROPERTY(bool dark READ dark NOTIFY changed)
  Q_PROPERTY(Choice choice READ choice WRITE setChoice NOTIFY changed)

 public:
  enum Choice { System, Light, Dark };
  Q_ENUM(Choice)

  static Appearance* create(QQmlEngine*, QJSEngine*);  // the program's one, for the document

  bool dark() const;
  Choice choice() const { return choice_; }
  void setChoice(Choice choice);

  bool eventFilter(QObject* watched, QEvent* event) override;

 Q_SIGNALS:
  void changed();

 private:
  friend Appearance& appearance();
  Appearance();
  Choice choice_;
};

/// The program's one; never destroyed. To be called when there is an application.
Appearance& appearance();

}  // namespace app
