#pragma once

#include <QObject>
#include <QQmlEngine>
#include <QString>

namespace app {

/// `seconds` (0 or more) as h:mm:ss, with `decimals` digits of the second, rounded.
QString clockText(double seconds, int decimals = 0);

/// Helps the document to draw a ruler: how times read and how far apart marks stand.
class TimeScale : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_SINGLETON

 public:
  Q_INVOKABLE static QString text(double seconds, int decimals = 0) {
    return clockText(seconds, decimals);
  }
  /// The smallest round number of seconds whose marks stand at least `minimumPixels` apart.
  Q_INVOKABLE static double step(double pixelsPerSecond, double minimumPixels);
};

}  // namespace app
