#include "matching/group.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <map>
#include <numeric>
#include <tuple>

#include "matching/correlate.h"
#include "matching/offset_forest.h"

namespace matching {
namespace {

constexpr double kSame = 0.05;              // seconds; echoes and interpolation stay below
constexpr double kDriftPerSecond = 120e-6;  // of length, that two clocks may add
constexpr double kDeviceOverlap = 0.15;     // seconds that padding may add to a device's files

std::string sentence(std::span<const Recording> recordings, const Alignment& a, const char* why) {
  char offset[32];
  std::snprintf(offset, sizeof offset, "%.3f", a.offsetSeconds);
  return recordings[std::size_t(a.first)].name + " and " + recordings[std::size_t(a.second)].name +
         " also fit " + offset + " s apart, but " + why + "; that match was not used.";
}

/// Groups while they grow, and what may join them.
class Groups {
 public:
  explicit Groups(std::span<const Recording> recordings)
      : recordings_(recordings), forest_(static_cast<int>(recordings.size())) {
    for (int file = 0; file < std::ssize(recordings); ++file) members_.push_back({file});
  }
  bool together(const Alignment& a) { return forest_.group(a.first) == forest_.group(a.second); }
  bool agrees(const Alignment& a) {
    const double off = position(a.second) - position(a.first) - a.offsetSeconds;
    return std::abs(off) < kSame + kDriftPerSecond * std::max(length(a.first), length(a.second));
  }
  // Whether laying the two groups over each other by this match keeps every device's files apart.
  bool keepsDevicesApart(const Alignment& a) {
    const double shift = position(a.first) + a.offsetSeconds - position(a.second);
    for (const int x : membersWith(a.first))
      for (const int y : membersWith(a.second))
        if (overlapOnDevice(x, y, shift) > kDeviceOverlap) return false;
    return true;
  }
  void join(const Alignment& a) {
    std::vector<int> all = membersWith(a.first);
    std::ranges::copy(membersWith(a.second), std::back_inserter(all));
    forest_.join(a.first, a.second, a.offsetSeconds);
    members_[std::size_t(forest_.group(a.first))] = std::move(all);
  }
  const std::vector<int>& membersWith(int file) {
    return members_[std::size_t(forest_.group(file))];
  }
  double position(int file) { return forest_.position(file); }
  bool isRoot(int file) { return forest_.group(file) == file; }

 private:
  double length(int file) const { return secondsOf(recordings_[std::size_t(file)]); }
  double overlapOnDevice(int x, int y, double shift) {
    const int device = recordings_[std::size_t(x)].device;
    if (device < 0 || device != recordings_[std::size_t(y)].device) return 0;
    const double from = std::max(position(x), position(y) + shift);
    return std::min(position(x) + length(x), position(y) + shift + length(y)) - from;
  }
  std::span<const Recording> recordings_;
  OffsetForest forest_;
  std::vector<std::vector<int>> members_;  // by the group's root
};

using OffsetOf = std::map<std::pair<int, int>, double>;

OffsetOf offsetsBothWays(std::span<const Match> matches) {
  OffsetOf offsets;
  for (const Match& match : matches) {
    offsets[{match.best.first, match.best.second}] = match.best.offsetSeconds;
    offsets[{match.best.second, match.best.first}] = -match.best.offsetSeconds;
  }
  return offsets;
}

// A match's weight, more with every third recording that confirms it, less with every one that
// contradicts it.
std::vector<double> confirmedWeights(std::span<const Recording> recordings,
                                     std::span<const Match> matches) {
  const OffsetOf offsets = offsetsBothWays(matches);
  std::vector<double> weights;
  for (const Match& match : matches) {
    const int a = match.best.first, b = match.best.second;
    int agree = 0, contradict = 0;
    for (auto ac = offsets.lower_bound({a, 0}); ac != offsets.end() && ac->first.first == a; ++ac) {
      const int c = ac->first.second;
      const auto cb = offsets.find({c, b});
      if (cb == offsets.end()) continue;
      const double longest =
          std::max({secondsOf(recordings[std::size_t(a)]), secondsOf(recordings[std::size_t(b)]),
                    secondsOf(recordings[std::size_t(c)])});
      const double off = ac->second + cb->second - match.best.offsetSeconds;
      ++(std::abs(off) < kSame + kDriftPerSecond * longest ? agree : contradict);
    }
    weights.push_back(weightOf(match.best) * (1.0 + agree) / ((1.0 + contradict) * (1.0 + contradict)));
  }
  return weights;
}

std::vector<Match> inOrderOfWeight(std::span<const Recording> recordings,
                                   std::vector<Match> matches) {
  std::ranges::sort(matches, {},
                    [](const Match& m) { return std::pair(m.best.first, m.best.second); });
  const std::vector<double> weights = confirmedWeights(recordings, matches);
  std::vector<std::size_t> order(matches.size());
  std::iota(order.begin(), order.end(), 0);
  std::ranges::stable_sort(order, std::greater{}, [&](std::size_t i) { return weights[i]; });
  std::vector<Match> sorted;
  for (const std::size_t i : order) sorted.push_back(std::move(matches[i]));
  return sorted;
}

// The first of the match's offsets that fits what is known so far becomes its best one.
bool fits(Groups& groups, Match& match) {
  const auto good = [&](const Alignment& a) {
    return groups.together(a) ? groups.agrees(a) : groups.keepsDevicesApart(a);
  };
  if (good(match.best)) return true;
  const auto rival = std::ranges::find_if(match.rivals, good);
  if (rival == match.rivals.end()) return false;
  std::swap(match.best, *rival);
  return true;
}

const char* objection(Groups& groups, const Alignment& a) {
  return groups.together(a) ? "the other recordings of the group contradict it"
                            : "recordings of one device would lie over each other";
}

void addGroup(Grouping& grouping, Groups& groups, int root) {
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

Grouping formGroups(std::span<const Recording> recordings, std::vector<Match> matches) {
  Groups groups(recordings);
  Grouping grouping;
  grouping.position.resize(recordings.size(), 0.0);
  grouping.groupOf.resize(recordings.size(), -1);
  for (Match& match : inOrderOfWeight(recordings, std::move(matches))) {
    if (!fits(groups, match)) {
      grouping.doubts.push_back(sentence(recordings, match.best, objection(groups, match.best)));
      continue;
    }
    if (!groups.together(match.best)) groups.join(match.best);
    grouping.kept.push_back(std::move(match));
  }
  for (int file = 0; file < std::ssize(recordings); ++file)
    if (groups.isRoot(file)) addGroup(grouping, groups, file);
  return grouping;
}

}  // namespace matching
