#pragma once

#include <string>
#include <string_view>

namespace timeline {

/// A number as the documents print it: six significant digits below a million, from there rounded
/// to a whole number; no exponent, no trailing zeros, the same in every locale.
std::string numberText(double value);

/// `text` as UTF-8 that every XML 1.0 document may hold: bytes that are no UTF-8 and characters
/// that XML forbids each become U+FFFD.
std::string cleanText(std::string_view text);

/// `text` cleaned, line ends and tabs as blanks: for formats of lines.
std::string oneLine(std::string_view text);

/// `text` cleaned and escaped for XML, for use between tags and inside double quotes.
std::string escaped(std::string_view text);

/// Whether `path` is one of Windows: a drive letter with a colon, or a network share
/// (two slashes of either kind).
bool isWindowsPath(std::string_view path);

/// The last part of `path`, as the file system names it.
std::string_view fileName(std::string_view path);

/// The part of the file name after its last dot, in lower case; empty if there is none.
std::string extension(std::string_view path);

}  // namespace timeline
