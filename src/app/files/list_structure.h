#pragma once

#include <QStringList>
#include <vector>

namespace app {

/// What one entry of the file list is: a recording, or the first or last line of a device group.
struct ListRow {
  enum Edge { NoEdge, GroupBegin, GroupEnd };
  Edge edge = NoEdge;
  int group = 0;  // from 1; 0 outside of groups
  int first = 0;  // rows of the group, its marker lines included
  int last = 0;
  int recordings = 0;  // in the group
  bool closed = true;  // whether the group has its end line; without, it takes the list's rest
};

/// One row per entry. Groups do not nest: a begin line inside a group is taken for a recording.
std::vector<ListRow> structureOf(const QStringList& entries);

}  // namespace app
