#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace report {

/// `value` with exactly `decimals` digits after a point: no exponent, whatever the locale.
std::string decimalText(double value, int decimals);

/// `value` with as few decimals as tell it from all others, whatever the locale.
std::string shortestText(double value);

/// A time of day or a length as h:mm:ss.mmm, rounded to the millisecond; "-" before negative ones.
std::string clockText(double seconds);

/// `count` and the noun in the form it needs: "1 file", "2 files".
std::string countText(std::size_t count, std::string_view noun);

/// `text` (UTF-8) safe to show in one line: control characters and broken bytes become "?".
std::string printable(std::string_view text);

/// Columns that `text` (printable UTF-8) takes on a terminal: two for East Asian wide characters,
/// none for combining marks.
int displayWidth(std::string_view text);

/// `text` with the middle left out where it is wider than `width` columns.
std::string elidedMiddle(std::string_view text, int width);

/// File names to show for `paths`: the name alone where it is unlike all others, otherwise with as
/// many of its folders as tell it from the rest. Printable, "/" between folders.
std::vector<std::string> distinctNames(const std::vector<std::string>& paths);

}  // namespace report
