#pragma once

#include <QObject>
#include <QQmlEngine>
#include <QSize>
#include <QStringList>

namespace app {

/// The settings of a run as the window offers them. Every choice is an index into its list of
/// names and is remembered between starts; the first frame rate and size leave it to the run, which
/// looks at all pictures.
class SyncSettings : public QObject {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(QStringList speedNames READ speedNames CONSTANT)
  Q_PROPERTY(QStringList rateNames READ rateNames CONSTANT)
  Q_PROPERTY(QStringList sizeNames READ sizeNames CONSTANT)
  Q_PROPERTY(QStringList modeNames READ modeNames CONSTANT)
  Q_PROPERTY(int speed MEMBER speed_ NOTIFY changed)
  Q_PROPERTY(int rate MEMBER rate_ NOTIFY changed)
  Q_PROPERTY(int size MEMBER size_ NOTIFY changed)
  Q_PROPERTY(int mode MEMBER mode_ NOTIFY changed)
  Q_PROPERTY(double tolerance READ tolerance NOTIFY changed)
  Q_PROPERTY(double frameRate READ frameRate NOTIFY changed)
  Q_PROPERTY(QSize frameSize READ frameSize NOTIFY changed)
  Q_PROPERTY(int modeFlag READ modeFlag NOTIFY changed)

 public:
  explicit SyncSettings(QObject* parent = nullptr);

  static QStringList speedNames();
  static QStringList rateNames();
  static QStringList sizeNames();
  static QStringList modeNames();

  // The values to run with.
  double tolerance() const;
  double frameRate() const;  // frames per second; 0: as the pictures are
  QSize frameSize() const;   // pixels; 0x0: as the pictures are
  int modeFlag() const;

 Q_SIGNALS:
  void changed();

 private:
  void load();
  void save() const;

  int speed_, rate_ = 0, size_ = 0, mode_;
};

}  // namespace app
