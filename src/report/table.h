#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace report {

using Row = std::vector<std::string>;  // one printable cell per column

/// Lays `rows` out as a table for a fixed-width font, each line set in by `indent` blanks and ended
/// by a line feed. `alignment` has one letter per column: l or r. Columns without any text but
/// their heading (the first row) are left out.
std::string tableText(std::span<const Row> rows, std::string_view alignment, int indent);

}  // namespace report
