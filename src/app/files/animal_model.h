#pragma once

#include <QAbstractListModel>
#include <QList>
#include <QString>
#include <QStringList>

namespace app {

/// The user's file list: full paths and the lines around device groups, in the order added.
/// Changed in the GUI thread only.
class AnimalModel final : public QAbstractListModel {
  Q_OBJECT

 public:
  static constexpr int kTypeRole = 33;  // role "type": the entry's text

  explicit AnimalModel(QObject* parent = nullptr);

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QHash<int, QByteArray> roleNames() const override;

  void addEntry(const QString& entry);
  void replaceEntries(const QStringList& entries);
  QStringList entries() const;
  void clear();

 private:
  QList<QString> entries_;
};

}  // namespace app
