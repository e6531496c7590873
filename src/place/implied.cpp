#include "place/implied.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <iterator>
#include <map>
#include <set>
#include <utility>

namespace place {
namespace {

constexpr double kEnoughToHear = 6;  // seconds of overlap in which a pair would have been heard
constexpr std::size_t kFewest = 2;   // recordings of each group that must agree
constexpr double kNearlyAll = 0.75;  // of the pairs heard that a bridge implies
constexpr std::size_t kTested = 6;   // implied pairs that tell a repetition from a right bridge

using FilePair = std::pair<int, int>;

FilePair filesOf(const align::Match& match) {
  return std::minmax(match.best.first, match.best.second);
}

// The open matches that lay the groups over each other as `bridge` does.
std::vector<align::Match*> agreeing(const align::Alignment& bridge, std::vector<align::Match>& open,
                                    GrowingGroups& groups) {
  const int from = groups.group(bridge.first), to = groups.group(bridge.second);
  std::vector<align::Match*> found;
  for (align::Match& match : open) {
    const align::Alignment& a = match.best;
    const bool same = groups.group(a.first) == from && groups.group(a.second) == to;
    const bool turned = groups.group(a.first) == to && groups.group(a.second) == from;
    if ((!same && !turned) || !match.rivals.empty()) continue;
    const double shift = same ? groups.shift(a) : -groups.shift(a);
    if (std::abs(shift - groups.shift(bridge)) < offsetTolerance(a.overlapSeconds))
      found.push_back(&match);
  }
  return found;
}

// How many recordings of the group that has fewer of them the matches are of.
std::size_t spreadOver(std::span<align::Match* const> matches, GrowingGroups& groups) {
  std::map<int, std::set<int>> files;  // by group
  for (const align::Match* match : matches)
    for (const int file : {match->best.first, match->best.second})
      files[groups.group(file)].insert(file);
  std::size_t fewest = matches.size();
  for (const auto& [group, members] : files) fewest = std::min(fewest, members.size());
  return fewest;
}

}  // namespace

ImpliedOverlaps::ImpliedOverlaps(std::span<const align::Recording> recordings,
                                 std::span<const align::Match> matches, Heard heard)
    : recordings_(recordings), heard_(std::move(heard)) {
  for (const align::Match& match : matches) {
    auto& all = alignments_[filesOf(match)];
    const bool ascending = match.best.first < match.best.second;
    for (const align::Alignment& a : align::allOf(match))
      all.push_back(ascending ? a : align::mirrored(a));
    if (match.best.copy) continue;
    for (const int file : {match.best.first, match.best.second})
      usual_[file] = std::max(usual_[file], match.best.strength);
  }
}

bool ImpliedOverlaps::fits(const Implied& pair) const {
  const auto known = alignments_.find(std::minmax(pair.first, pair.second));
  if (known == alignments_.end()) return false;
  const double offset = pair.first < pair.second ? pair.offsetSeconds : -pair.offsetSeconds;
  return std::ranges::any_of(known->second, [&](const align::Alignment& a) {
    const double longest = std::max(align::secondsOf(recordings_[std::size_t(a.first)]),
                                    align::secondsOf(recordings_[std::size_t(a.second)]));
    return std::abs(a.offsetSeconds - offset) < offsetTolerance(longest) + 2 * a.errorSeconds;
  });
}

bool ImpliedOverlaps::mustBeHeard(const Implied& pair) const {
  const auto x = usual_.find(pair.first), y = usual_.find(pair.second);
  return x != usual_.end() && y != usual_.end() &&
         std::min(x->second, y->second) >= align::kPastRepetition;
}

bool ImpliedOverlaps::bearOut(const align::Alignment& bridge, GrowingGroups& groups) const {
  double fitting = 0, silent = 0;  // seconds
  for (const Implied& pair : impliedBy(bridge, groups, recordings_)) {
    if (fits(pair))
      fitting += pair.overlapSeconds;
    else if (heard_(pair.first, pair.second) && mustBeHeard(pair))
      silent += pair.overlapSeconds;
  }
  return fitting >= kNearlyAll * (fitting + silent);
}

std::vector<Implied> ImpliedOverlaps::untested(const align::Alignment& bridge,
                                               GrowingGroups& groups) const {
  std::vector<Implied> pairs = impliedBy(bridge, groups, recordings_);
  const auto rest = std::ranges::stable_partition(pairs, [&](const Implied& pair) {
    return !heard_(pair.first, pair.second) &&
           !alignments_.contains(std::minmax(pair.first, pair.second));
  });
  const auto known = static_cast<std::size_t>(std::ssize(rest));
  pairs.erase(rest.begin(), rest.end());
  pairs.resize(std::min(pairs.size(), kTested - std::min(kTested, known)));
  return pairs;
}

bool devicesKnown(std::span<const align::Recording> recordings) {
  return std::ranges::any_of(
      recordings, [](const align::Recording& recording) { return recording.device >= 0; });
}

std::vector<Implied> impliedBy(const align::Alignment& bridge, GrowingGroups& groups,
                               std::span<const align::Recording> recordings) {
  std::vector<Implied> implied;
  const double shift = groups.shift(bridge);
  for (const int x : groups.membersWith(bridge.first))
    for (const int y : groups.membersWith(bridge.second)) {
      if (!align::comparable(recordings, x, y)) continue;
      const double offset = groups.position(y) + shift - groups.position(x);
      const double overlap =
          align::overlapAt(offset, recordings[std::size_t(x)], recordings[std::size_t(y)]);
      if (overlap >= kEnoughToHear) implied.push_back({x, y, offset, overlap});
    }
  std::ranges::stable_sort(implied, std::greater{}, &Implied::overlapSeconds);
  return implied;
}

void joinByImpliedOverlaps(std::vector<align::Match>& open, std::vector<align::Match>& kept,
                           GrowingGroups& groups, std::span<const align::Recording> recordings) {
  if (!devicesKnown(recordings)) return;
  std::ranges::stable_sort(open, std::greater{},
                           [](const align::Match& m) { return align::weightOf(m.best); });
  for (std::size_t i = 0; i < open.size(); ++i) {
    const align::Alignment bridge = open[i].best;
    if (groups.together(bridge) || !groups.possible(bridge)) continue;
    const std::vector<align::Match*> agree = agreeing(bridge, open, groups);
    if (spreadOver(agree, groups) < kFewest) continue;
    for (const align::Match* match : agree) kept.push_back(*match);
    groups.join(bridge);
  }
  std::set<FilePair> used;
  for (const align::Match& match : kept) used.insert(filesOf(match));
  std::erase_if(open, [&](const align::Match& match) { return used.contains(filesOf(match)); });
}

}  // namespace place
