#include "report/table.h"

#include <algorithm>

#include "report/text.h"

namespace report {
namespace {

/// The width of a column; 0 where no row below the heading says anything.
int columnWidth(std::span<const Row> rows, std::size_t column) {
  int width = 0;
  bool filled = false;
  for (const Row& row : rows) {
    width = std::max(width, displayWidth(row[column]));
    filled |= &row != &rows.front() && !row[column].empty();
  }
  return filled ? width : 0;
}

std::string cellText(const std::string& cell, char alignment, int width) {
  const std::string blanks(static_cast<std::size_t>(width - displayWidth(cell)), ' ');
  return alignment == 'r' ? blanks + cell : cell + blanks;
}

}  // namespace

std::string tableText(std::span<const Row> rows, std::string_view alignment, int indent) {
  std::vector<int> widths;
  for (std::size_t c = 0; c < alignment.size(); ++c) widths.push_back(columnWidth(rows, c));
  std::string result;
  for (const Row& row : rows) {
    std::string line(static_cast<std::size_t>(indent), ' ');
    for (std::size_t c = 0; c < widths.size(); ++c)
      if (widths[c] > 0) line += cellText(row[c], alignment[c], widths[c]) + "  ";
    line.erase(line.find_last_not_of(' ') + 1);
    result += line + '\n';
  }
  return result;
}

}  // namespace report
