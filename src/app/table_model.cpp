#include "app/table_model.h"

namespace app {

QVariant TableModel::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
  return rows_[index.row()].value(role - Qt::UserRole - 1);
}

QHash<int, QByteArray> TableModel::roleNames() const {
  QHash<int, QByteArray> names;
  for (int i = 0; i < roles_.size(); ++i) names.insert(Qt::UserRole + 1 + i, roles_[i]);
  return names;
}

void TableModel::setRows(QList<QVariantList> rows) {
  beginResetModel();
  rows_ = std::move(rows);
  endResetModel();
  Q_EMIT countChanged();
}

}  // namespace app
