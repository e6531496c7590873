#include "place/offset_forest.h"

#include <numeric>

namespace place {

OffsetForest::OffsetForest(int files) : parent_(files), position_(files, 0.0) {
  std::iota(parent_.begin(), parent_.end(), 0);
}

std::optional<double> OffsetForest::between(int first, int second) {
  if (group(first) != group(second)) return std::nullopt;
  return position(second) - position(first);
}

void OffsetForest::join(int first, int second, double offset) {
  const int root = group(second);
  position_[root] = position(first) + offset - position(second);
  parent_[root] = group(first);
}

double OffsetForest::position(int file) {
  return group(file) == file ? 0 : position_[file];  // group() made the root the parent
}

int OffsetForest::group(int file) {
  const int parent = parent_[file];
  if (parent == file) return file;
  const int root = group(parent);
  if (root != parent) position_[file] += position_[parent];
  return parent_[file] = root;
}

}  // namespace place
