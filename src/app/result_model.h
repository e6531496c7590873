#pragma once

#include <QAbstractListModel>
#include <QQmlEngine>
#include <QUrl>
#include <memory>
#include <vector>

#include "app/end_state.h"
#include "app/sound_paths.h"
#include "app/table_model.h"
#include "app/timeline_model.h"
#include "project/project.h"

namespace app {

/// What a project holds as the window shows it: one row per group, and the lists of what was left
/// out and written.
class ResultModel : public QAbstractListModel {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("The workspace has it")
  Q_PROPERTY(QString summary READ summary NOTIFY changed)
  Q_PROPERTY(app::EndState::State endState READ endState NOTIFY changed)
  Q_PROPERTY(bool refused READ refused NOTIFY changed)
  Q_PROPERTY(int failureCount READ failureCount NOTIFY changed)
  Q_PROPERTY(QString failure READ failure NOTIFY changed)
  Q_PROPERTY(int leftOutCount READ leftOutCount NOTIFY changed)
  Q_PROPERTY(int unsureCount READ unsureCount NOTIFY changed)
  Q_PROPERTY(QString folder READ folder NOTIFY changed)
  Q_PROPERTY(app::TableModel* leftOut READ leftOut CONSTANT)
  Q_PROPERTY(app::TableModel* documents READ documents CONSTANT)
  Q_PROPERTY(app::TableModel* notices READ notices CONSTANT)

 public:
  enum Role { NameRole = Qt::UserRole + 1, CountRole, TimelineRole };

  explicit ResultModel(QObject* parent = nullptr);

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QHash<int, QByteArray> roleNames() const override;

  /// Shows `project`; timelines of groups that it had before stay the same objects.
  void show(const project::Project& project, const SoundPaths& sounds,
            const Failures& failures = {});

  QString summary() const { return summary_; }
  EndState::State endState() const { return endState_; }
  bool refused() const { return failures_.refused; }  // nothing came of the last run
  int failureCount() const { return static_cast<int>(failures_.sentences.size()); }
  QString failure() const;  // the first sentence on what was not written or begun; mostly empty
  int leftOutCount() const { return leftOut_.rowCount(); }
  int unsureCount() const { return unsureCount_; }
  QString folder() const { return folder_; }       // of the documents
  TableModel* leftOut() { return &leftOut_; }      // recording, name, path, kind, usable, ...
  TableModel* documents() { return &documents_; }  // program, count, path, content, paths
  TableModel* notices() { return &notices_; }      // notice, failed

  /// The timeline of group `row`; null if there is none.
  Q_INVOKABLE app::TimelineModel* timeline(int row) const;
  /// The row of the group in which a recording stands; -1 if it has no place.
  Q_INVOKABLE int groupOf(int recording) const;
  /// Shows the folder of the documents, or the folder that holds the file `path`, in the system's
  /// file manager, or opens the file in the program that is meant for it.
  Q_INVOKABLE void openFolder() const;
  Q_INVOKABLE static void openPlaceOf(const QString& path);
  Q_INVOKABLE static void openFile(const QString& path);
  Q_INVOKABLE static QList<QUrl> urls(const QStringList& paths);

 Q_SIGNALS:
  void changed();

 private:
  void showGroups(const project::Project& project, const SoundPaths& sounds);

  std::vector<std::unique_ptr<TimelineModel>> timelines_;
  TableModel leftOut_{{"recording", "name", "path", "kind", "usable", "reason", "remedy"}};
  TableModel documents_{{"program", "count", "path", "content", "paths"}};
  TableModel notices_{{"notice", "failed"}};
  Failures failures_;
  QString summary_, folder_;
  EndState::State endState_ = EndState::Success;
  int unsureCount_ = 0;
};

}  // namespace app
