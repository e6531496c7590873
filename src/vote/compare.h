#pragma once

#include <Eigen/Core>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "analysis/matrix.h"
#include "vote/hit.h"

namespace vote {

inline constexpr int kMostFiles = 999;  // per run: indices have three digits, 999 means nothing

/// Two files to compare: `first` is the longer one, or the one listed first when none is.
struct FilePair {
  int first, second;
  bool operator==(const FilePair&) const = default;
};

/// Every unordered pair of files but those that any device group holds both of, in list order.
/// `durations` are seconds. Group members that are no file say nothing; of more than kMostFiles
/// files the later ones are left out.
std::vector<FilePair> pairsToCompare(const Eigen::VectorXf& durations,
                                     const std::vector<std::vector<int>>& deviceGroups);

/// The hits of one pair, ascending, duplicates included, kHitSentinel first; with no hit at all
/// the sentinel and a 0. `x` is the longer recording's fingerprint and `first` its index, below
/// 1000 like `second`; durations are seconds, and only that of `y` is used. Pure.
std::vector<HitCode> compareFingerprints(const analysis::MatrixXLI& x, const analysis::MatrixXLI& y,
                                         int first, int second, float durationX, float durationY);

/// Where the comparison of a run reports; any may be empty. All but the signal are called from
/// several threads, lines one at a time.
struct CompareCalls {
  std::function<void(std::string_view)> log;      // a line for the run's log file
  std::function<void(std::string_view)> console;  // a diagnostic line
  std::function<void(int)> moveprogressignal;     // the bar's width in pixels, once at the start
  std::function<bool()> cancelled;                // polled at every pair; the rest stay empty
};

// What the comparison tells of its steps. The first goes to the console, with the signal, the last
// too, before each pair, with the rows of its first file; the others go to the log.
void announce(const CompareCalls& calls);
inline constexpr std::string_view kEnterLine = "entering proveri all   ------->>>>   ";
inline constexpr std::string_view kRoomLines[] = {"poslealokacija....",  // "after allocation"
                                                  "allocate memory done.."};
inline constexpr std::string_view kHundredLine = "iljada pominaa...";  // "a thousand went by"
constexpr bool isHundredth(int compared) { return compared % 100 == 0; }
std::string rowsLine(Eigen::Index rows);

/// "Check all": compares all pairs of the `nall` fingerprints in `all`, whose durations in seconds
/// are `traenje`. Returns an array of (nall + 1) squared hit lists, which the caller deletes: the
/// lists of pairsToCompare's pairs in that order, then empty ones. Pairs run in parallel.
std::vector<unsigned long long>* proveriall(int nall, Eigen::VectorXf traenje,
                                            analysis::MatrixXLI* all,
                                            std::vector<std::vector<int>> device_groups,
                                            const CompareCalls& calls = {});

}  // namespace vote
