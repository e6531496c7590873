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
constexpr std::size_t kFewest = 2;  // recordings of each group that must agree
constexpr double kNearlyAll = 0.75;  // of the pairs heard that a bridge implies

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

bool borneOut(const align::Alignment& bridge, std::size_t agree, GrowingGroups& groups,
              std::span<const align::Recording> recordings, const Heard& heard) {
  const auto implied = impliedBy(bridge, groups, recordings);
  const auto count = std::ranges::count_if(
      implied, [&](const Implied& pair) { return heard(pair.first, pair.second); });
  return double(agree) >= kNearlyAll * double(count);
}

}  // namespace

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
      const double overlap = std::min(align::secondsOf(recordings[std::size_t(x)]),
                                      offset + align::secondsOf(recordings[std::size_t(y)])) -
                             std::max(0.0, offset);
      if (overlap >= kEnoughToHear) implied.push_back({x, y, offset, overlap});
    }
  std::ranges::stable_sort(implied, std::greater{}, &Implied::overlapSeconds);
  return implied;
}

void joinByImpliedOverlaps(std::vector<align::Match>& open, std::vector<align::Match>& kept,
                           GrowingGroups& groups, std::span<const align::Recording> recordings,
                           const Heard& heard) {
  if (!devicesKnown(recordings)) return;
  std::ranges::stable_sort(open, std::greater{},
                           [](const align::Match& m) { return align::weightOf(m.best); });
  for (std::size_t i = 0; i < open.size(); ++i) {
    const align::Alignment bridge = open[i].best;
    if (groups.together(bridge) || !groups.possible(bridge)) continue;
    const std::vector<align::Match*> agree = agreeing(bridge, open, groups);
    if (spreadOver(agree, groups) < kFewest ||
        !borneOut(bridge, agree.size(), groups, recordings, heard))
      continue;
    for (const align::Match* match : agree) kept.push_back(*match);
    groups.join(bridge);
  }
  std::set<FilePair> used;
  for (const align::Match& match : kept) used.insert(filesOf(match));
  std::erase_if(open, [&](const align::Match& match) { return used.contains(filesOf(match)); });
}

}  // namespace place
