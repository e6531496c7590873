#pragma once

#include <QAbstractListModel>
#include <QList>
#include <QQmlEngine>
#include <QVariant>

namespace app {

/// Rows of values under the role names given once; replaced as a whole.
class TableModel : public QAbstractListModel {
  Q_OBJECT
  QML_ANONYMOUS
  Q_PROPERTY(int count READ count NOTIFY countChanged)

 public:
  explicit TableModel(const QList<QByteArray>& roles, QObject* parent = nullptr)
      : QAbstractListModel(parent), roles_(roles) {}

  int rowCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
  }
  QVariant data(const QModelIndex& index, int role) const override;
  QHash<int, QByteArray> roleNames() const override;

  int count() const { return rowCount(); }
  /// Each row has one value per role.
  void setRows(QList<QVariantList> rows);

 Q_SIGNALS:
  void countChanged();

 private:
  QList<QByteArray> roles_;
  QList<QVariantList> rows_;
};

}  // namespace app
