#include "app/files/list_structure.h"

#include "app/files/file_list.h"

namespace app {
namespace {

/// Row of the end line of the group that begins at row `first`; -1 if it has none.
int endOfGroup(const QStringList& entries, int first) {
  return static_cast<int>(entries.indexOf(kGroupEnd, first));
}

void markGroup(std::vector<ListRow>& rows, int group, int first, int end) {
  const bool closed = end >= 0;
  const int last = closed ? end : static_cast<int>(rows.size()) - 1;
  const int recordings = last - first - (closed ? 1 : 0);
  for (int i = first; i <= last; ++i) {
    rows[static_cast<std::size_t>(i)] = {ListRow::NoEdge, group, first, last, recordings, closed};
  }
  rows[static_cast<std::size_t>(first)].edge = ListRow::GroupBegin;
  if (closed) rows[static_cast<std::size_t>(last)].edge = ListRow::GroupEnd;
}

}  // namespace

std::vector<ListRow> structureOf(const QStringList& entries) {
  std::vector<ListRow> rows(static_cast<std::size_t>(entries.size()));
  int group = 0;
  for (int i = 0; i < entries.size(); ++i) {
    if (entries[i] != kGroupBegin) continue;
    markGroup(rows, ++group, i, endOfGroup(entries, i));
    i = rows[static_cast<std::size_t>(i)].last;
  }
  return rows;
}

}  // namespace app
