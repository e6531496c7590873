#pragma once

#include <QAbstractListModel>
#include <QQmlEngine>
#include <QStringList>
#include <vector>

#include "app/waveform.h"
#include "run/outcome.h"

namespace app {

/// One synchronised group as a picture: a row per clip with its place in seconds and its lane; one
/// lane per device. Waveforms are read in the background and follow by dataChanged.
class TimelineModel : public QAbstractListModel {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("The result has one per group")
  Q_PROPERTY(QString name READ name CONSTANT)
  Q_PROPERTY(int clipCount READ clipCount CONSTANT)
  Q_PROPERTY(QStringList lanes READ lanes CONSTANT)
  Q_PROPERTY(double lengthSeconds READ lengthSeconds CONSTANT)

 public:
  enum Role {
    NameRole = Qt::UserRole + 1,
    PathRole,
    LaneRole,
    StartRole,
    LengthRole,
    ConfidenceRole,
    DetailRole,
    WaveformRole
  };

  explicit TimelineModel(const run::Group& group, QObject* parent = nullptr);

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QHash<int, QByteArray> roleNames() const override;

  QString name() const { return name_; }
  int clipCount() const { return rowCount(); }
  QStringList lanes() const { return lanes_; }
  double lengthSeconds() const { return lengthSeconds_; }

 private:
  struct Clip {
    run::Member member;
    int lane = 0;
    Waveform waveform;
  };
  void placeOnLanes();
  void nameLanes();
  void readWaveforms();
  void takeWaveform(int row, const Waveform& waveform);

  QString name_;
  std::vector<Clip> clips_;
  QStringList lanes_;
  double lengthSeconds_ = 0;
};

}  // namespace app
