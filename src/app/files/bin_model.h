#pragma once

#include <QAbstractListModel>
#include <QQmlEngine>
#include <QSet>
#include <vector>

#include "app/files/media_facts.h"
#include "project/project.h"

namespace app {

class Workspace;

/// The devices of the workspace's project as a list of bins: a row for each device and, unless it
/// is collapsed, below it one for each of its recordings. Knows which rows are selected and hands
/// what is done to them to the workspace. Recordings and devices are known by their numbers.
class BinModel : public QAbstractListModel {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(int recordings READ recordings NOTIFY structureChanged)
  Q_PROPERTY(int devices READ devices NOTIFY structureChanged)
  Q_PROPERTY(QString length READ length NOTIFY factsChanged)
  Q_PROPERTY(double firstFrameRate READ firstFrameRate NOTIFY factsChanged)
  Q_PROPERTY(int selectedRecordings READ selectedRecordings NOTIFY selectionChanged)
  Q_PROPERTY(int selectedDevices READ selectedDevices NOTIFY selectionChanged)

 public:
  enum Role {
    IdRole = Qt::UserRole + 1,
    IsDeviceRole,
    NameRole,
    FolderRole,
    CountRole,
    TracksRole,
    CollapsedRole,
    SelectedRole,
    KindRole,
    LengthRole,
    ProblemRole
  };
  Q_ENUM(Role)

  explicit BinModel(QObject* parent = nullptr);
  BinModel(MediaFactsCache::Probe probe, QObject* parent);

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QHash<int, QByteArray> roleNames() const override;

  int recordings() const;
  int devices() const;
  QString length() const;  // of all recordings together, as far as it is known
  double firstFrameRate() const { return firstFrameRate_; }  // of the first video; 0: none
  int selectedRecordings() const;                            // with those of selected devices
  int selectedDevices() const;

  /// Selects `row` alone; with `toggle` in addition or no longer; with `extend` all rows from the
  /// one selected last.
  Q_INVOKABLE void select(int row, bool toggle, bool extend);
  Q_INVOKABLE void selectAll();
  Q_INVOKABLE void toggleCollapsed(int row);
  Q_INVOKABLE void rename(int row, const QString& name);
  /// Moves what is selected into the device of `row`; behind the last row: into a new device.
  Q_INVOKABLE void moveTo(int row);
  /// Makes one device of the selected ones.
  Q_INVOKABLE void join();
  /// Makes a device of its own of every recording of the selected devices, or one of the selected
  /// recordings.
  Q_INVOKABLE void split();
  Q_INVOKABLE void remove();

 Q_SIGNALS:
  void structureChanged();
  void factsChanged();
  void selectionChanged();

 private:
  struct Row {
    project::Id device = 0, recording = 0;  // recording 0: the device's own row
  };
  const project::Project& project() const;
  void rebuild();
  const project::Recording* recordingAt(int row) const;
  QVariant deviceData(const project::Device& device, int role) const;
  QVariant recordingData(const project::Recording& recording, int role) const;
  bool isSelected(const Row& row) const;
  std::vector<project::Id> chosenRecordings() const;
  std::vector<project::Id> chosenDevices() const;
  std::optional<MediaFacts> factsOf(const project::Recording& recording) const;
  void announceSelection();
  void factsLearned();
  void announceFacts();

  std::vector<Row> rows_;
  QSet<int> collapsed_;  // devices
  QSet<int> selected_;   // devices and recordings
  int anchor_ = -1;      // the row selected last
  mutable MediaFactsCache cache_;
  double firstFrameRate_ = 0;
  bool factsAnnounced_ = true;
};

}  // namespace app
