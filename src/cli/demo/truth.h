#pragma once

#include <string>

#include "cli/demo/scene.h"

namespace cli::demo {

/// Where every take of `scene` truly stands, as JSON: file, device, start, length and clock. Starts
/// count from the earliest take; under drift they are those that are right in the take's middle.
std::string truthJson(const Scene& scene);

/// How a run's result compares with the truth.
struct Comparison {
  std::string text;  // a table, for people
  int placed = 0, all = 0;
  double largestErrorSeconds = 0;  // of those placed
};

/// Compares the JSON of a run with that of the truth; both are read leniently by file name. Throws
/// what the JSON library throws on other texts.
Comparison compare(const std::string& truth, const std::string& result);

}  // namespace cli::demo
