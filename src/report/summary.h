#pragma once

#include <string>

#include "report/outcome.h"

namespace report {

/// What a run found, for people: per group a table of its recordings, then the files that stand
/// alone and those that were ignored, each with the reason and what to do about it. Ends with a
/// line feed; UTF-8.
std::string summaryText(const Outcome& outcome);

/// Which recordings of each group were compared to find their places, strongest first.
std::string matchesText(const Outcome& outcome);

}  // namespace report
