#pragma once

#include <Eigen/Core>
#include <array>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "vote/hit.h"
#include "vote/vote.h"

namespace vote {

/// How much of two recordings lies on top of each other at an offset.
struct Overlap {
  float seconds;     // "presek" (intersection)
  float sections;    // "sekcii vo presek": sections of the second recording within it
  float confidence;  // "sigurnost": those for each section that supports the offset; small is sure
};

/// Durations in seconds of the first and second file of the pair that `stats` are of.
Overlap overlapAt(const OffsetStats& stats, float secondsFirst, float secondsSecond);

/// Whether the offset is to be believed. The music test, for long recordings that share little of
/// their landmarks, is tried only with `mode` 1.
Acceptance judge(const OffsetStats& stats, const Overlap& overlap, float secondsSecond, int mode);

inline constexpr std::size_t kFewestHits = 19;  // a vote needs more, the sentinel counted

/// The vote on the pair that `stats` are of, with neither raw hits nor peaks.
PairVote voteWith(const std::optional<OffsetStats>& stats, int first, int second,
                  const Eigen::VectorXf& durations, int mode);

/// The vote on one pair's sorted hits, with neither raw hits nor peaks; none when there are too
/// few hits to vote or when `durations` does not know the files. Pure.
std::optional<PairVote> voteOn(std::span<const HitCode> hits, const Eigen::VectorXf& durations,
                               int mode);

/// What the run's log says of the steps of a vote; nothing of a pair with too few hits.
std::vector<std::string> stepLines(const PairVote& vote);

/// An accepted pair as the sync table has it: second file, first file, offset in seconds,
/// supporting sections, confidence, most counted hits.
std::array<float, 6> syncRow(const PairVote& vote);

/// The diagnostic line for an accepted pair; `names` are the files'.
std::string acceptanceLine(const PairVote& vote, const Eigen::VectorXf& durations,
                           std::span<const std::string> names);

/// Where the evaluation reports; either may be empty. Called from several threads, one at a time.
struct EvaluateCalls {
  std::function<void(std::string_view)> log;      // a line for the run's log file
  std::function<void(std::string_view)> console;  // a diagnostic line
};

/// Votes on the first `count` hit lists of `pairs` in parallel and appends the accepted pairs to
/// `table`, in pair order: floats, six a row. `durations` in seconds and `names` by file index.
void evaluatePairs(const std::vector<unsigned long long>* pairs, std::vector<float>& table,
                   const Eigen::VectorXf& durations, int count,
                   const std::vector<std::string>& names, int mode,
                   const EvaluateCalls& calls = {});

}  // namespace vote
