#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace cli {

/// Whether `pattern`, in which "*" stands for any text and "?" for any byte, fits `name`. The case
/// of ASCII letters does not matter. Pure.
bool fits(std::string_view name, std::string_view pattern);

/// The files and folders that `word` stands for if its last part is a pattern, sorted; `word`
/// itself if it is none, or nothing fits. Hidden names fit only a pattern that begins with a point.
std::vector<std::string> expanded(const std::string& word);

}  // namespace cli
