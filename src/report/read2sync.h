#pragma once

#include <optional>
#include <string>
#include <vector>

#include "report/outcome.h"

namespace report {

/// What the user chose for a run.
struct RunSettings {
  double tolerance = 0;
  int mode = 0;  // the mode flag
  double framesPerSecond = 0;
  int width = 0, height = 0;  // pixels
  bool placedBySound = true;  // false: accepted pairs only, at the vote's offsets
};

/// The text of READ2SYNC.txt, the page that tells a person what became of the recordings:
/// settings, places with their certainty, what stands alone and what to try, what was ignored,
/// which documents were written. UTF-8, ends with a line feed.
std::string read2syncPage(const Outcome& outcome, const RunSettings& settings);

/// One compared pair, as tempresults.txt tells of it.
struct ComparedPair {
  std::string first, second;            // paths
  std::optional<double> offsetSeconds;  // start of the second on the first's clock; none: no vote
  double confidence = 0;
  int hits = 0;      // things heard in both, duplicates included
  int sections = 0;  // distinct sections of the second that support the offset
  enum class Verdict { none, strict, music } verdict = Verdict::none;  // music: mode 1's test only
};

/// The first line of tempresults.txt: what its columns are. Columns are parted by tabs.
std::string tempResultsHeading();

/// The line of one pair, without a line end.
std::string tempResultsLine(const ComparedPair& pair);

}  // namespace report
