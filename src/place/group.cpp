#include "place/group.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

#include "place/bridges.h"
#include "place/sentences.h"

namespace place {
namespace {

using Recordings = std::span<const align::Recording>;

constexpr double kSure = 2;  // log odds from which two groups are joined

double probability(double logOdds) { return 1 / (1 + std::exp(-logOdds)); }

// Of a match within a group the first offset that agrees becomes its best one.
bool agreesSomehow(GrowingGroups& groups, align::Match& match) {
  if (groups.agrees(match.best)) return true;
  const auto rival = std::ranges::find_if(
      match.rivals, [&](const align::Alignment& a) { return groups.agrees(a); });
  if (rival == match.rivals.end()) return false;
  std::swap(match.best, *rival);
  return true;
}

std::string doubt(const align::Match& match, Bridges& bridges, Recordings recordings) {
  const align::Alignment& a = match.best;
  GrowingGroups& groups = bridges.groups();
  if (groups.together(a))
    return contradiction({a.first, a.second, a.offsetSeconds, a.strength},
                         groups.position(a.second) - groups.position(a.first), recordings);
  if (!groups.suitsDevices(a)) return deviceConflict(a, recordings);
  return bridges.ofSilence(a) < -kSure ? othersSilent(a, recordings)
                                       : repetition(match, recordings);
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

/// Joins what can be joined and remembers how sure that was.
class Forming {
 public:
  Forming(Recordings recordings, std::span<const align::Match> matches, const Heard& heard)
      : recordings_(recordings),
        heard_(heard),
        bridges_(recordings, matches, heard),
        logOdds_(recordings.size(), INFINITY) {}

  void joinAll() {
    while (const auto join = bridges_.likeliest(kSure)) {
      wantTested(*join);
      remember(*join);
      bridges_.join(*join);
    }
    for (const Join& join : bridges_.open(0)) wantTested(join);
  }

  Bridges& bridges() { return bridges_; }
  GrowingGroups& groups() { return bridges_.groups(); }
  std::vector<Implied> untested() const { return untested_; }

  // A place is as sure as what the file itself hears, and as what joined its part of the group.
  double confidence(int file) {
    return probability(std::min(bridges_.ofPlace(file), logOdds_[std::size_t(file)]));
  }

 private:
  void wantTested(const Join& join) {
    std::ranges::copy(untestedBy(join.by, groups(), recordings_, heard_),
                      std::back_inserter(untested_));
  }

  // What joins two groups says most of the smaller.
  void remember(const Join& join) {
    const auto &x = groups().membersWith(join.by.first), &y = groups().membersWith(join.by.second);
    for (const int file : x.size() < y.size() ? x : y)
      logOdds_[std::size_t(file)] = std::min(logOdds_[std::size_t(file)], join.logOdds);
    if (x.size() == y.size())
      for (const int file : x)
        logOdds_[std::size_t(file)] = std::min(logOdds_[std::size_t(file)], join.logOdds);
  }

  Recordings recordings_;
  const Heard& heard_;
  Bridges bridges_;
  std::vector<double> logOdds_;  // per file, of the joins that it stands by
  std::vector<Implied> untested_;
};

}  // namespace

Grouping formGroups(Recordings recordings, std::vector<align::Match> matches, const Heard& heard) {
  std::ranges::sort(matches, {},
                    [](const align::Match& m) { return std::pair(m.best.first, m.best.second); });
  Forming forming(recordings, matches, heard);
  forming.joinAll();
  GrowingGroups& groups = forming.groups();
  Grouping grouping;
  grouping.position.resize(recordings.size(), 0.0);
  grouping.groupOf.resize(recordings.size(), -1);
  grouping.untested = forming.untested();
  for (align::Match& match : matches) {
    if (groups.together(match.best) && agreesSomehow(groups, match)) {
      grouping.kept.push_back(std::move(match));
      continue;
    }
    grouping.doubts.push_back(doubt(match, forming.bridges(), recordings));
    if (!groups.together(match.best)) grouping.undecided.push_back({match, grouping.doubts.back()});
  }
  for (int file = 0; file < std::ssize(recordings); ++file) {
    if (groups.group(file) == file) addGroup(grouping, groups, file);
    grouping.confidence.push_back(forming.confidence(file));
  }
  return grouping;
}

}  // namespace place
