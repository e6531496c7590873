#include "place/group.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <utility>

#include "place/ambiguous.h"
#include "place/consistency.h"
#include "place/growing_groups.h"
#include "place/repeats.h"
#include "place/sentences.h"

namespace place {
namespace {

using Recordings = std::span<const align::Recording>;

struct Ranked {
  align::Match match;
  Confirmation thirds;
  double weight;
};

// Most first: a match weighs more with every third recording that confirms it, much less with every
// one that contradicts it.
std::vector<Ranked> ranked(Recordings recordings, std::vector<align::Match> matches) {
  std::ranges::sort(matches, {},
                    [](const align::Match& m) { return std::pair(m.best.first, m.best.second); });
  const std::vector<Confirmation> thirds = confirmations(recordings, matches);
  std::vector<Ranked> all;
  for (std::size_t i = 0; i < matches.size(); ++i) {
    const double against = 1.0 + thirds[i].contradict;
    const double weight =
        align::weightOf(matches[i].best) * (1.0 + thirds[i].agree) / (against * against);
    all.push_back({std::move(matches[i]), thirds[i], weight});
  }
  std::ranges::stable_sort(all, std::greater{}, &Ranked::weight);
  return all;
}

// Chance rarely lets several others agree on a repetition, and hardly any contradict.
bool confirmed(const Confirmation& thirds, const align::Match& match) {
  const int enough = match.rivals.empty() ? 2 : 4;
  return thirds.agree >= enough && thirds.agree >= 2 * thirds.contradict;
}

// Of a match within a group the first offset that agrees becomes its best one.
bool agreesSomehow(GrowingGroups& groups, align::Match& match) {
  if (groups.agrees(match.best)) return true;
  const auto rival = std::ranges::find_if(
      match.rivals, [&](const align::Alignment& a) { return groups.agrees(a); });
  if (rival == match.rivals.end()) return false;
  std::swap(match.best, *rival);
  return true;
}

std::string doubt(const align::Match& match, GrowingGroups& groups, Recordings recordings) {
  const align::Alignment& a = match.best;
  if (groups.together(a))
    return contradiction({a.first, a.second, a.offsetSeconds, a.strength},
                         groups.position(a.second) - groups.position(a.first), recordings);
  if (!groups.suitsDevices(a)) return deviceConflict(a, recordings);
  return groups.possible(a) ? repetition(match, recordings) : othersSilent(a, recordings);
}

void addGroup(Grouping& grouping, GrowingGroups& groups, int root) {
  std::vector<int> members = groups.membersWith(root);
  if (members.size() < 2) return;
  std::ranges::sort(members);
  for (const int file : members) {
    grouping.position[std::size_t(file)] = groups.position(file);
    grouping.groupOf[std::size_t(file)] = static_cast<int>(grouping.members.size());
  }
  grouping.members.push_back(std::move(members));
}

}  // namespace

Grouping formGroups(Recordings recordings, std::vector<align::Match> matches, const Heard& heard) {
  GrowingGroups groups(recordings);
  Grouping grouping;
  grouping.position.resize(recordings.size(), 0.0);
  grouping.groupOf.resize(recordings.size(), -1);
  std::vector<align::Match> open;
  const ImpliedOverlaps overlaps(recordings, matches, heard);
  groups.require([&](const align::Alignment& a) { return overlaps.bearOut(a, groups); });
  const auto join = [&](const align::Alignment& a) {
    std::ranges::copy(overlaps.untested(a, groups), std::back_inserter(grouping.untested));
    groups.join(a);
  };
  dropMereRepeats(matches);
  std::vector<align::Match> ambiguous = takeAmbiguous(matches, recordings);
  for (auto& [match, thirds, weight] : ranked(recordings, std::move(matches))) {
    const bool together = groups.together(match.best);
    const bool joins = !together && ((confirmed(thirds, match) && groups.possible(match.best)) ||
                                     standsOut(match, groups));
    if (joins) join(match.best);
    if (joins || (together && agreesSomehow(groups, match)))
      grouping.kept.push_back(std::move(match));
    else
      open.push_back(std::move(match));
  }
  joinByConsensus(open, grouping.kept, groups);
  joinByImpliedOverlaps(ambiguous, grouping.kept, groups, recordings);
  std::ranges::move(ambiguous, std::back_inserter(open));
  for (align::Match& match : open) {
    if (groups.together(match.best) && agreesSomehow(groups, match)) {
      grouping.kept.push_back(std::move(match));
      continue;
    }
    grouping.doubts.push_back(doubt(match, groups, recordings));
    if (!groups.together(match.best)) grouping.undecided.push_back({match, grouping.doubts.back()});
  }
  for (int file = 0; file < std::ssize(recordings); ++file)
    if (groups.group(file) == file) addGroup(grouping, groups, file);
  return grouping;
}

}  // namespace place
