#include "place/bridges.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <iterator>
#include <limits>

namespace place {
namespace {

constexpr std::size_t kWays = 40;   // in which two groups may lie, likeliest first
constexpr std::size_t kTested = 5;  // of them at least; others are hardly ever likelier
constexpr double kImpossible = -1e9;

// The log odds of the first against all others, and against none of them being right.
double against(double first, std::span<const double> others) {
  double most = 0, sum = 0;
  for (const double other : others) most = std::max(most, other);
  for (const double other : others) sum += std::exp(other - most);
  return first - most - std::log(sum + std::exp(-most));
}

}  // namespace

Bridges::Bridges(std::span<const align::Recording> recordings,
                 std::span<const align::Match> matches, const Heard& heard)
    : recordings_(recordings),
      heard_(heard),
      odds_(matches),
      groups_(recordings),
      matchesOf_(recordings.size()),
      neighbours_(recordings.size()) {
  std::map<Groups, Bridge> bridges;
  for (const align::Match& match : matches) {
    const std::vector<double> odds = odds_.of(match);
    const std::vector<align::Alignment> all = align::allOf(match);
    const int index = static_cast<int>(offsets_.size());
    std::vector<Offset>& offsets = offsets_.emplace_back();
    for (std::size_t i = 0; i < all.size(); ++i) offsets.push_back({all[i], odds[i], index});
    const Groups files = std::minmax(match.best.first, match.best.second);
    matched_.insert(files);
    bridges[files].matches.push_back(index);
    for (const int file : {files.first, files.second})
      matchesOf_[std::size_t(file)].push_back(index);
  }
  for (auto& [files, bridge] : bridges) keep(files, std::move(bridge));
}

// How one side of the matches may move on the other, likeliest first: what all of them together say
// of every offset of any. Where an alignment is `forward`, its second file is on the side that
// moves.
std::vector<Bridges::Shift> Bridges::shifts(std::span<const int> matches, const Forward& forward) {
  struct Vote {
    double seconds, tolerance;
    const Offset* offset;
  };
  std::vector<Vote> votes;
  for (const int match : matches)
    for (const Offset& offset : offsets_[std::size_t(match)]) {
      const align::Alignment& a = offset.alignment;
      const double longest = std::max(align::secondsOf(recordings_[std::size_t(a.first)]),
                                      align::secondsOf(recordings_[std::size_t(a.second)]));
      const double shift = groups_.shift(a);
      votes.push_back(
          {forward(a) ? shift : -shift, offsetTolerance(longest) + 2 * a.errorSeconds, &offset});
    }
  std::ranges::stable_sort(votes, std::greater{}, [](const Vote& v) { return v.offset->logOdds; });
  std::vector<Shift> shifts;
  for (const Vote& way : votes) {
    if (shifts.size() == kWays) break;
    if (std::ranges::any_of(shifts, [&](const Shift& s) {
          return std::abs(s.seconds - way.seconds) < kSameOffset;
        }))
      continue;
    std::map<int, double> most;  // by match
    for (const Vote& vote : votes)
      if (std::abs(vote.seconds - way.seconds) < vote.tolerance)
        most.try_emplace(vote.offset->match, vote.offset->logOdds);
    double sum = 0;
    for (const auto& [match, logOdds] : most) sum += logOdds;
    shifts.push_back({way.seconds, sum, &way.offset->alignment});
  }
  std::ranges::stable_sort(shifts, std::greater{}, &Shift::logOdds);
  return shifts;
}

std::vector<Bridges::Shift> Bridges::shifts(const Groups& groups, const Bridge& bridge) {
  return shifts(bridge.matches,
                [&](const align::Alignment& a) { return groups_.group(a.first) == groups.first; });
}

void Bridges::rank(const Groups& groups, Bridge& bridge) {
  const std::vector<Shift> all = shifts(groups, bridge);
  bridge.tested = false;
  bridge.join = {*all.front().by, all.front().logOdds};
}

double Bridges::ofSilence(const align::Alignment& by) {
  if (!groups_.suitsDevices(by)) return kImpossible;
  double sum = 0;
  for (const Implied& pair : impliedBy(by, groups_, recordings_))
    if (heard_(pair.first, pair.second) && !matched_.contains(std::minmax(pair.first, pair.second)))
      sum += odds_.ofSilence(pair.first, pair.second, pair.overlapSeconds);
  return sum;
}

// How the other group of a join moves on that of `from`.
double Bridges::move(const Join& join, int from) {
  const double shift = groups_.shift(join.by);
  return groups_.group(join.by.first) == from ? shift : -shift;
}

// The log odds of ways round by a third group that lead elsewhere.
std::vector<double> Bridges::waysRound(const Groups& groups, const Shift& shift) {
  std::vector<double> odds;
  const auto &ofFirst = neighbours_[std::size_t(groups.first)],
             &ofSecond = neighbours_[std::size_t(groups.second)];
  for (const int third : ofFirst) {
    if (!ofSecond.contains(third)) continue;
    const Join& there = bridges_.at(std::minmax(groups.first, third)).join;
    const Join& on = bridges_.at(std::minmax(third, groups.second)).join;
    const double off = move(there, groups.first) + move(on, third) - shift.seconds;
    const double allowed =
        2 * (there.by.errorSeconds + on.by.errorSeconds + shift.by->errorSeconds);
    const double longest = std::max({there.by.overlapSeconds, on.by.overlapSeconds});
    if (std::abs(off) > 2 * offsetTolerance(longest) + allowed && groups_.suitsDevices(there.by) &&
        groups_.suitsDevices(on.by))
      odds.push_back(std::min(there.logOdds, on.logOdds));
  }
  return odds;
}

void Bridges::test(const Groups& groups, Bridge& bridge) {
  std::vector<Shift> all = shifts(groups, bridge);
  for (std::size_t tested = 0; tested < std::min(kTested, all.size()) || !all.front().tested;
       ++tested) {
    Shift& likeliest = *std::ranges::find(all, false, &Shift::tested);
    likeliest.logOdds += ofSilence(*likeliest.by);
    likeliest.tested = true;
    std::ranges::stable_sort(all, std::greater{}, &Shift::logOdds);
  }
  std::vector<double> others = waysRound(groups, all.front());
  for (const Shift& shift : std::span(all).subspan(1))
    if (std::abs(shift.seconds - all.front().seconds) > 2 * kSameOffset)
      others.push_back(shift.logOdds);
  bridge.tested = true;
  bridge.join = {*all.front().by, against(all.front().logOdds, others)};
}

void Bridges::keep(const Groups& groups, Bridge bridge) {
  if (!bridge.tested) rank(groups, bridge);
  order_.insert({-bridge.join.logOdds, groups});
  neighbours_[std::size_t(groups.first)].insert(groups.second);
  neighbours_[std::size_t(groups.second)].insert(groups.first);
  bridges_[groups] = std::move(bridge);
}

Bridges::Bridge Bridges::take(const Groups& groups) {
  Bridge bridge = std::move(bridges_.extract(groups).mapped());
  order_.erase({-bridge.join.logOdds, groups});
  neighbours_[std::size_t(groups.first)].erase(groups.second);
  neighbours_[std::size_t(groups.second)].erase(groups.first);
  return bridge;
}

// A bridge is tested only when it seems the likeliest of all: tests only make it less so.
std::optional<Join> Bridges::likeliest(double leastLogOdds) {
  while (!order_.empty() && -order_.begin()->first > leastLogOdds) {
    const Groups groups = order_.begin()->second;
    if (bridges_.at(groups).tested) return bridges_.at(groups).join;
    Bridge bridge = take(groups);
    test(groups, bridge);
    keep(groups, std::move(bridge));
  }
  return std::nullopt;
}

void Bridges::join(const Join& join) {
  const int a = groups_.group(join.by.first), b = groups_.group(join.by.second);
  take(std::minmax(a, b));
  std::map<int, Bridge> others;  // by the other group
  for (const int group : {a, b})
    for (const int other : std::set(neighbours_[std::size_t(group)])) {
      Bridge bridge = take(std::minmax(group, other));
      std::ranges::copy(bridge.matches, std::back_inserter(others[other].matches));
    }
  groups_.join(join.by);
  const int joined = groups_.group(a);
  for (auto& [other, bridge] : others) keep(std::minmax(joined, other), std::move(bridge));
}

std::vector<Join> Bridges::open(double leastLogOdds) {
  std::vector<Groups> untested;
  for (const auto& [odds, groups] : order_)
    if (-odds > leastLogOdds && !bridges_.at(groups).tested) untested.push_back(groups);
  for (const Groups& groups : untested) {
    Bridge bridge = take(groups);
    test(groups, bridge);
    keep(groups, std::move(bridge));
  }
  std::vector<Join> joins;
  for (const auto& [odds, groups] : order_)
    if (-odds > leastLogOdds) joins.push_back(bridges_.at(groups).join);
  return joins;
}

double Bridges::ofPlace(int file) {
  std::vector<int> matches;
  for (const int match : matchesOf_[std::size_t(file)])
    if (groups_.together(offsets_[std::size_t(match)].front().alignment)) matches.push_back(match);
  double here = 0;
  std::vector<double> elsewhere;
  for (const Shift& shift :
       shifts(matches, [&](const align::Alignment& a) { return a.second == file; }))
    if (groups_.agrees(*shift.by))
      here = std::max(here, shift.logOdds);
    else
      elsewhere.push_back(shift.logOdds);
  return against(here, elsewhere);
}

}  // namespace place
