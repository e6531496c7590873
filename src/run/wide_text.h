#pragma once

#include <string>
#include <string_view>

namespace run {

/// UTF-8 `text` as wide characters (UTF-16 on Windows, UTF-32 elsewhere); needs no locale. Bytes
/// that are not UTF-8 become U+FFFD.
std::wstring widened(std::string_view text);

/// 8-bit form of `text`: characters that do not fit into seven bits become "_".
std::string narrowed(std::wstring_view text);

}  // namespace run
