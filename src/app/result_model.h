#pragma once

#include <QAbstractListModel>
#include <QQmlEngine>
#include <memory>
#include <vector>

#include "app/table_model.h"
#include "app/timeline_model.h"
#include "run/outcome.h"

namespace app {

/// What the last run found: one row per group, and the lists of what was left out and written.
class ResultModel : public QAbstractListModel {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("The session has it")
  Q_PROPERTY(QString summary READ summary NOTIFY changed)
  Q_PROPERTY(int leftOutCount READ leftOutCount NOTIFY changed)
  Q_PROPERTY(TableModel* leftOut READ leftOut CONSTANT)
  Q_PROPERTY(TableModel* documents READ documents CONSTANT)
  Q_PROPERTY(TableModel* notices READ notices CONSTANT)

 public:
  enum Role { NameRole = Qt::UserRole + 1, CountRole, TimelineRole };

  explicit ResultModel(QObject* parent = nullptr);

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QHash<int, QByteArray> roleNames() const override;

  /// Replaces everything by what `outcome` says.
  void show(const run::Outcome& outcome);

  QString summary() const { return summary_; }
  int leftOutCount() const { return leftOut_.rowCount(); }
  TableModel* leftOut() { return &leftOut_; }      // name, path, kind, reason, remedy
  TableModel* documents() { return &documents_; }  // name, path, purpose, content
  TableModel* notices() { return &notices_; }      // notice

  /// The timeline of group `row`; null if there is none.
  Q_INVOKABLE app::TimelineModel* timeline(int row) const;
  /// Shows the SYNCED folder, or the folder that holds the file `path`, in the system's file
  /// manager.
  Q_INVOKABLE static void openSyncedFolder();
  Q_INVOKABLE static void openPlaceOf(const QString& path);

 Q_SIGNALS:
  void changed();

 private:
  std::vector<std::unique_ptr<TimelineModel>> timelines_;
  TableModel leftOut_{{"name", "path", "kind", "reason", "remedy"}};
  TableModel documents_{{"name", "path", "purpose", "content"}};
  TableModel notices_{{"notice"}};
  QString summary_;
};

}  // namespace app
