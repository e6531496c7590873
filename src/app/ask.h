#pragma once

#include <QObject>
#include <QQmlEngine>
#include <QUrl>

namespace app {

/// Asks for files and folders by the system's dialogs. An empty answer means that the user would
/// rather not. For the document; each call returns when the dialog is closed.
class Ask : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_SINGLETON

 public:
  /// A folder of recordings.
  Q_INVOKABLE static QUrl forRecordings();
  /// A folder to write documents into; `present` is where they are.
  Q_INVOKABLE static QUrl forResults(const QString& present);
  Q_INVOKABLE static QUrl forProject();
  /// Where to save a project that is called `name`.
  Q_INVOKABLE static QUrl whereToSave(const QString& name);
};

}  // namespace app
