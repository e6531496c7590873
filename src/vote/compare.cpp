#include "vote/compare.h"

#include <algorithm>
#include <atomic>
#include <cassert>
#include <memory>
#include <span>
#include <string>

#include "report/parallel.h"
#include "report/per_thread.h"
#include "vote/join.h"

namespace vote {
namespace {

std::span<const std::uint64_t> column(const analysis::MatrixXLI& fingerprint, int index) {
  if (fingerprint.cols() <= index) return {};
  return {fingerprint.col(index).data(), static_cast<std::size_t>(fingerprint.rows())};
}

/// For every file the device groups that it is in, ascending.
std::vector<std::vector<int>> groupsOfFiles(int files,
                                            const std::vector<std::vector<int>>& deviceGroups) {
  std::vector<std::vector<int>> groups(files);
  for (int group = 0; group < std::ssize(deviceGroups); ++group) {
    for (const int file : deviceGroups[group]) {
      if (file >= 0 && file < files) groups[file].push_back(group);
    }
  }
  return groups;
}

bool shareOne(const std::vector<int>& a, const std::vector<int>& b) {
  return std::ranges::find_first_of(a, b) != a.end();
}

void say(const std::function<void(std::string_view)>& line, std::string_view text) {
  if (!line) return;
#pragma omp critical
  line(text);
}

}  // namespace

void announce(const CompareCalls& calls) {
  say(calls.console, "- makeprogress function OK - ova e pred EMIT ");  // "this is before EMIT"
  say(calls.console, "value:1");
  if (calls.moveprogressignal) calls.moveprogressignal(1);
  say(calls.console, "emitted moveprogresssignal...");
}

std::string rowsLine(Eigen::Index rows) { return "n1=" + std::to_string(rows); }

std::vector<FilePair> pairsToCompare(const Eigen::VectorXf& durations,
                                     const std::vector<std::vector<int>>& deviceGroups) {
  const int files = static_cast<int>(std::min<Eigen::Index>(durations.size(), kMostFiles));
  const auto groups = groupsOfFiles(files, deviceGroups);
  std::vector<FilePair> pairs;
  for (int i = 0; i < files; ++i) {
    for (int j = i + 1; j < files; ++j) {
      if (shareOne(groups[i], groups[j])) continue;
      pairs.push_back(durations[j] > durations[i] ? FilePair{j, i} : FilePair{i, j});
    }
  }
  return pairs;
}

std::vector<HitCode> compareFingerprints(const analysis::MatrixXLI& x, const analysis::MatrixXLI& y,
                                         int first, int second, float /*durationX*/,
                                         float durationY) {
  static const report::PerThread<std::vector<RowPair>> rooms;
  std::vector<RowPair>& room = *rooms;
  const auto rows = mergeJoin(column(x, 1), column(y, 1), room);
  std::vector<HitCode> hits{kHitSentinel};
  hits.reserve(rows.size() + 2);
  for (const RowPair& row : rows) {
    const std::uint64_t frameX = x(row.x, 0), frameY = y(row.y, 0);
    const auto delta = deltaOfFrames(frameX, frameY);
    if (delta) hits.push_back(pack({sectionOfFrame(frameY, durationY), first, second, *delta}));
  }
  sortHits(hits);
  if (hits.size() < 2) hits.push_back(0);
  return hits;
}

std::vector<unsigned long long>* proveriall(int nall, Eigen::VectorXf traenje,
                                            analysis::MatrixXLI* all,
                                            std::vector<std::vector<int>> device_groups,
                                            const CompareCalls& calls) {
  assert(nall >= 0 && nall <= traenje.size());
  announce(calls);
  traenje.array() += 1.0f;
  say(calls.log, kEnterLine);
  const auto slots = static_cast<std::size_t>(nall + 1) * static_cast<std::size_t>(nall + 1);
  auto results = std::make_unique<std::vector<HitCode>[]>(slots);
  for (const std::string_view text : kRoomLines) say(calls.log, text);

  const auto pairs = pairsToCompare(traenje.head(nall), device_groups);
  std::atomic<int> compared = 0;
  const auto compare = [&](const FilePair& pair, std::vector<HitCode>& hits) {
    if (calls.cancelled && calls.cancelled()) return;
    const auto [first, second] = pair;
    say(calls.console, rowsLine(all[first].rows()));
    hits = compareFingerprints(all[first], all[second], first, second, traenje[first],
                               traenje[second]);
    if (isHundredth(++compared)) say(calls.log, kHundredLine);
  };
  report::FirstException failed;
#pragma omp parallel for schedule(dynamic)
  for (std::ptrdiff_t i = 0; i < std::ssize(pairs); ++i)
    failed.keep([&] { compare(pairs[i], results[i]); });
  failed.rethrow();
  return results.release();
}

}  // namespace vote
