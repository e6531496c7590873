#include "app/files/animal_model.h"

#include <QDebug>

namespace app {

AnimalModel::AnimalModel(QObject* parent) : QAbstractListModel(parent) {}

int AnimalModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(entries_.size());
}

QVariant AnimalModel::data(const QModelIndex& index, int role) const {
  if (index.row() < 0 || index.row() > entries_.size() || role != kTypeRole) return {};
  return entries_.value(index.row());  // a row equal to the count is let through and reads as empty
}

QHash<int, QByteArray> AnimalModel::roleNames() const { return {{kTypeRole, "type"}}; }

void AnimalModel::addEntry(const QString& entry) {
  const int row = rowCount();
  beginInsertRows(QModelIndex(), row, row);
  entries_.append(entry);
  endInsertRows();
}

void AnimalModel::replaceEntries(const QStringList& entries) {
  beginResetModel();
  entries_ = entries;
  endResetModel();
}

QStringList AnimalModel::entries() const { return entries_; }

void AnimalModel::clear() {
  qDebug() << "tuka odi kod za clear file list";  // "the code to clear the file list goes here"
  beginResetModel();
  entries_.clear();
  endResetModel();
}

}  // namespace app
