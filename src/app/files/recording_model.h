#pragma once

#include <QIdentityProxyModel>
#include <QQmlEngine>
#include <QSize>
#include <vector>

#include "app/files/list_structure.h"
#include "app/files/media_facts.h"

namespace app {

/// The file list as the window shows it: row for row the entries of the source model, told apart
/// into recordings and the two edges of a device group, with what is known of each file.
class RecordingModel : public QIdentityProxyModel {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(int recordings READ recordings NOTIFY structureChanged)
  Q_PROPERTY(int devices READ devices NOTIFY structureChanged)
  Q_PROPERTY(double firstFrameRate READ firstFrameRate NOTIFY factsChanged)
  Q_PROPERTY(QSize firstFrameSize READ firstFrameSize NOTIFY factsChanged)

 public:
  enum Edge {
    NoEdge = ListRow::NoEdge,
    GroupBegin = ListRow::GroupBegin,
    GroupEnd = ListRow::GroupEnd
  };
  Q_ENUM(Edge)
  enum Role {
    EdgeRole = Qt::UserRole + 2,
    InGroupRole,
    GroupNumberRole,
    GroupSizeRole,
    NameRole,
    FolderRole,
    KindRole,
    LengthRole,
    ReadableRole
  };

  explicit RecordingModel(QObject* parent = nullptr);
  RecordingModel(MediaFactsCache::Probe probe, QObject* parent);

  QVariant data(const QModelIndex& index, int role) const override;
  QHash<int, QByteArray> roleNames() const override;
  void setSourceModel(QAbstractItemModel* source) override;

  int recordings() const;
  int devices() const;  // device groups and files outside of them
  double firstFrameRate() const { return firstVideo_.frameRate; }
  QSize firstFrameSize() const { return {firstVideo_.width, firstVideo_.height}; }

  /// Takes the entry at `row` off the list; at the edge of a group, the whole group.
  Q_INVOKABLE void remove(int row);

 Q_SIGNALS:
  void structureChanged();
  void factsChanged();

 private:
  const std::vector<ListRow>& rows() const;
  QString entry(int row) const;
  QString kindText(int row) const;
  void structureMoved();
  void announceStructure();
  void factsLearned();
  void announceFacts();
  void findFirstVideo();
  std::optional<MediaFacts> factsOf(int row) const;

  mutable std::vector<ListRow> rows_;  // worked out when first asked for after a change
  mutable bool stale_ = true;
  mutable MediaFactsCache cache_;
  MediaFacts firstVideo_;
  bool structureAnnounced_ = true;
  bool factsAnnounced_ = true;
};

}  // namespace app
