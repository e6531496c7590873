#include "export/edit.h"

#include <algorithm>
#include <optional>

namespace timeline {
namespace {

struct Run {
  Span span;
  int angle;
};

/// Spans that touch as one.
std::vector<Span> joined(const std::vector<Span>& spans) {
  std::vector<Span> result;
  for (const Span& span : spans) {
    if (!result.empty() && span.start <= result.back().end)
      result.back().end = std::max(result.back().end, span.end);
    else
      result.push_back(span);
  }
  return result;
}

/// What each angle can show, and whether it may be taken at all.
using Coverage = std::vector<std::vector<Span>>;

/// The angle that goes on longest from `at` on.
std::optional<Run> longestFrom(const Coverage& coverage, std::int64_t at) {
  std::optional<Run> best;
  for (int angle = 0; angle < std::ssize(coverage); ++angle)
    for (const Span& span : coverage[angle])
      if (span.start <= at && at < span.end && (!best || span.end > best->span.end))
        best = Run{{at, span.end}, angle};
  return best;
}

std::int64_t nextStart(const Coverage& coverage, std::int64_t after, std::int64_t otherwise) {
  std::int64_t next = otherwise;
  for (const std::vector<Span>& spans : coverage)
    for (const Span& span : spans)
      if (span.start > after) next = std::min(next, span.start);
  return next;
}

std::vector<Run> runsWithin(const Coverage& coverage, Span window) {
  std::vector<Run> runs;
  for (std::int64_t at = window.start; at < window.end;) {
    if (auto run = longestFrom(coverage, at)) {
      run->span.end = std::min(run->span.end, window.end);
      runs.push_back(*run);
      at = run->span.end;
    } else {
      at = nextStart(coverage, at, window.end);
    }
  }
  return runs;
}

/// A short run takes from the one before it, as long as that one stays long enough.
void lengthenShortRuns(std::vector<Run>& runs, const Coverage& coverage, std::int64_t least) {
  for (std::size_t i = 1; i < runs.size(); ++i) {
    Run &before = runs[i - 1], &run = runs[i];
    if (run.span.length() >= least || before.span.end != run.span.start) continue;
    std::int64_t earliest = run.span.start;
    for (const Span& span : coverage[run.angle])
      if (span.start <= run.span.start && run.span.start < span.end) earliest = span.start;
    const std::int64_t start =
        std::max({earliest, run.span.end - least, before.span.start + least});
    if (start >= run.span.start) continue;
    before.span.end = run.span.start = start;
  }
}

/// The pieces of `length` that no run covers.
std::vector<Span> holes(const std::vector<Run>& runs, std::int64_t length) {
  std::vector<Span> result;
  std::int64_t at = 0;
  for (const Run& run : runs) {
    if (run.span.start > at) result.push_back({at, run.span.start});
    at = std::max(at, run.span.end);
  }
  if (at < length) result.push_back({at, length});
  return result;
}

std::vector<Run> pictures(std::span<const Angle> angles, std::int64_t length, std::int64_t least) {
  Coverage coverage;
  for (const Angle& angle : angles) coverage.push_back(joined(angle.picture));
  std::vector<Run> runs = runsWithin(coverage, {0, length});
  lengthenShortRuns(runs, coverage, least);
  return runs;
}

/// Recorders first; cameras only where no recorder sounds.
std::vector<Run> sounds(std::span<const Angle> angles, std::int64_t length, std::int64_t least) {
  Coverage recorders(angles.size()), cameras(angles.size());
  for (std::size_t i = 0; i < angles.size(); ++i)
    (angles[i].recorder ? recorders : cameras)[i] = joined(angles[i].sound);
  std::vector<Run> runs = runsWithin(recorders, {0, length});
  lengthenShortRuns(runs, recorders, least);
  for (const Span& hole : holes(runs, length))
    for (const Run& run : runsWithin(cameras, hole)) runs.push_back(run);
  std::ranges::sort(runs, {}, [](const Run& run) { return run.span.start; });
  return runs;
}

int angleAt(const std::vector<Run>& runs, std::int64_t at) {
  const auto found = std::ranges::find_if(
      runs, [&](const Run& run) { return run.span.start <= at && at < run.span.end; });
  return found == runs.end() ? -1 : found->angle;
}

}  // namespace

std::vector<Cut> edit(std::span<const Angle> angles, std::int64_t length, std::int64_t least) {
  const std::vector<Run> seen = pictures(angles, length, least);
  const std::vector<Run> heard = sounds(angles, length, least);
  std::vector<std::int64_t> edges{0, length};
  for (const auto* runs : {&seen, &heard})
    for (const Run& run : *runs) edges.insert(edges.end(), {run.span.start, run.span.end});
  std::ranges::sort(edges);
  std::vector<Cut> cuts;
  for (std::size_t i = 0; i + 1 < edges.size(); ++i) {
    if (edges[i] == edges[i + 1]) continue;
    const Cut cut{{edges[i], edges[i + 1]}, angleAt(seen, edges[i]), angleAt(heard, edges[i])};
    if (!cuts.empty() && cuts.back().picture == cut.picture && cuts.back().sound == cut.sound)
      cuts.back().span.end = cut.span.end;
    else
      cuts.push_back(cut);
  }
  return cuts;
}

}  // namespace timeline
