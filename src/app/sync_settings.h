#pragma once

#include <QObject>
#include <QQmlEngine>
#include <QSize>
#include <QStringList>
#include <string>
#include <vector>

#include "project/project.h"

namespace app {

/// What a run and its documents are to be like, as the window offers it. Every choice is an index
/// into its list of names and is remembered between starts; the first frame rate and size leave it
/// to the run, which looks at all pictures. The workspace's project follows every choice, and a
/// project that is opened brings its own.
class SyncSettings : public QObject {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(QStringList speedNames READ speedNames CONSTANT)
  Q_PROPERTY(QStringList rateNames READ rateNames CONSTANT)
  Q_PROPERTY(QStringList sizeNames READ sizeNames CONSTANT)
  Q_PROPERTY(QStringList modeNames READ modeNames CONSTANT)
  Q_PROPERTY(QStringList driftNames READ driftNames CONSTANT)
  Q_PROPERTY(QStringList programNames READ programNames CONSTANT)
  Q_PROPERTY(int speed MEMBER speed_ NOTIFY changed)
  Q_PROPERTY(int rate MEMBER rate_ NOTIFY changed)
  Q_PROPERTY(int size MEMBER size_ NOTIFY changed)
  Q_PROPERTY(int mode MEMBER mode_ NOTIFY changed)
  Q_PROPERTY(int drift MEMBER drift_ NOTIFY changed)
  Q_PROPERTY(bool byClock MEMBER byClock_ NOTIFY changed)
  Q_PROPERTY(bool cameraSound MEMBER cameraSound_ NOTIFY changed)
  Q_PROPERTY(bool replaceAudio MEMBER replaceAudio_ NOTIFY changed)
  Q_PROPERTY(QList<int> programs READ programs NOTIFY changed)
  Q_PROPERTY(QString programsText READ programsText NOTIFY changed)
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
  static QStringList driftNames();
  static QStringList programNames();  // of the editing programs, in the order of the formats

  QList<int> programs() const;  // the indices of those that get documents; never empty
  QString programsText() const;
  /// Whether the program `index` gets documents; the last one that does cannot be taken away.
  Q_INVOKABLE void setProgram(int index, bool wanted);

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
  void hand() const;
  void takeOver(const project::Settings& settings);

  int speed_ = 0, rate_ = 0, size_ = 0, mode_ = 0, drift_ = 0;
  bool byClock_ = false, cameraSound_ = false, replaceAudio_ = false;
  bool takingOver_ = false;
  std::vector<std::string> formats_;  // in the order of `timeline::formatNames`
};

}  // namespace app
