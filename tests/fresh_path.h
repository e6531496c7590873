#pragma once

#include <filesystem>
#include <random>
#include <string>

#include "report/files.h"

/// A path below the temporary folder that no other test has, nor another run of the same one:
/// `name` (UTF-8) with a number before it.
inline std::filesystem::path freshPath(const std::string& name) {
  std::random_device random;
  const std::string number = std::to_string(random());
  return std::filesystem::temp_directory_path() / report::fromUtf8(number + " " + name);
}
