#pragma once

#include <QAbstractListModel>
#include <QQmlEngine>
#include <QStringList>
#include <string>
#include <vector>

#include "app/listen/programme.h"
#include "app/sound_paths.h"
#include "app/waveform.h"
#include "project/look_up.h"

namespace app {

/// A clip as the timeline shows it.
struct TimelineClip {
  project::Id recording = 0;
  QString name, path;
  int lane = 0;
  double start = 0;   // seconds after the group's earliest clip
  double length = 0;  // seconds
  double confidence = 0;
  project::State state = project::State::sure;
  bool pinned = false;
  std::string sound;      // UTF-8; empty: cannot be heard
  double soundStart = 0;  // seconds after `start`
};

/// One group as a picture: a row per clip with its place in seconds and its lane; one lane per
/// device. Waveforms are read in the background and follow by dataChanged.
class TimelineModel : public QAbstractListModel {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("The result has one per group")
  Q_PROPERTY(QString name READ name NOTIFY changed)
  Q_PROPERTY(int clipCount READ clipCount NOTIFY changed)
  Q_PROPERTY(QStringList lanes READ lanes NOTIFY changed)
  Q_PROPERTY(double lengthSeconds READ lengthSeconds NOTIFY changed)

 public:
  enum Role {
    NameRole = Qt::UserRole + 1,
    PathRole,
    LaneRole,
    StartRole,
    LengthRole,
    ConfidenceRole,
    StateRole,
    WaveformRole
  };
  Q_ENUM(Role)

  explicit TimelineModel(QObject* parent = nullptr) : QAbstractListModel(parent) {}

  /// Shows this group of the project. Rows stay what they are as long as the group has the same
  /// recordings in the same order.
  void show(const project::Project& project, const project::Group& group, const SoundPaths& sounds);

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QHash<int, QByteArray> roleNames() const override;

  Q_INVOKABLE int group() const { return group_; }
  /// Where the shown time 0 stands on the group's own timeline.
  Q_INVOKABLE double origin() const { return origin_; }
  QString name() const { return name_; }
  int clipCount() const { return rowCount(); }
  QStringList lanes() const { return lanes_; }
  double lengthSeconds() const { return lengthSeconds_; }

  const std::vector<TimelineClip>& clips() const { return clips_; }
  const Waveform& waveform(int row) const { return waveforms_[static_cast<std::size_t>(row)]; }
  /// What can be heard of it.
  std::vector<HeardClip> heardClips() const;
  /// The row of a recording; -1 if it does not stand here.
  Q_INVOKABLE int rowOf(int recording) const;
  Q_INVOKABLE int recordingAt(int row) const;
  /// The device that a lane belongs to.
  Q_INVOKABLE int deviceOfLane(int lane) const;
  /// The stretch of time in which two clips both stand: its start and end in seconds.
  Q_INVOKABLE QList<double> overlap(int first, int second) const;
  Q_INVOKABLE double startOf(int row) const;
  Q_INVOKABLE double endOf(int row) const;
  /// The next row after `row` whose place is in doubt, from the first one again; -1 if there is
  /// none.
  Q_INVOKABLE int nextUnsure(int row) const;

 Q_SIGNALS:
  void changed();

 private:
  bool sameRows(const std::vector<TimelineClip>& clips) const;
  void keepWaveforms(const std::vector<TimelineClip>& clips);
  void readWaveforms();
  void takeWaveform(int row, const std::string& sound, const Waveform& waveform);

  project::Id group_ = 0;
  QString name_;
  std::vector<TimelineClip> clips_;
  std::vector<Waveform> waveforms_;
  QStringList lanes_;
  std::vector<project::Id> devices_;  // of the lanes
  double origin_ = 0, lengthSeconds_ = 0;
};

}  // namespace app
