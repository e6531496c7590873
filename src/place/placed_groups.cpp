#include "place/placed_groups.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <utility>

#include "place/positions.h"
#include "report/text.h"

namespace place {
namespace {

constexpr double kPadding = 0.010;  // seconds; shorter overlaps on a device are moved apart

// With whom it was matched, those first with whom it fits best.
void describe(Placed& placed, std::span<const align::Match> matches) {
  std::vector<std::pair<double, int>> others;
  for (const align::Match& m : matches) {
    if (m.best.first != placed.file && m.best.second != placed.file) continue;
    others.emplace_back(-align::weightOf(m.best),
                        m.best.first == placed.file ? m.best.second : m.best.first);
  }
  std::ranges::sort(others);
  for (const auto& [weight, file] : others) placed.matchedWith.push_back(file);
}

// A device's files follow one another; by the estimates' errors they may overlap a little.
void moveDevicesApart(PlacedGroup& group, std::span<const align::Recording> recordings) {
  std::map<int, Placed*> last;
  for (Placed& p : group.members) {
    const int device = recordings[std::size_t(p.file)].device;
    if (device < 0) continue;
    if (Placed* before = last[device]) {
      const double overlap = before->offsetSeconds +
                             align::secondsOf(recordings[std::size_t(before->file)]) -
                             p.offsetSeconds;
      if (overlap > 0 && overlap < kPadding) {
        p.offsetSeconds += overlap;
        if (p.oneClockShift) *p.oneClockShift -= overlap;
        p.errorSeconds = std::hypot(p.errorSeconds.value_or(0), overlap);
      }
    }
    last[device] = &p;
  }
}

PlacedGroup placedGroup(const Grouping& grouping, int index,
                        std::span<const align::Recording> recordings) {
  const std::vector<int>& members = grouping.members[std::size_t(index)];
  std::vector<align::Match> matches;
  for (const align::Match& m : grouping.kept)
    if (grouping.groupOf[std::size_t(m.best.first)] == index) matches.push_back(m);
  const Positions positions = solvePositions(recordings, members, matches);
  PlacedGroup group;
  for (std::size_t i = 0; i < members.size(); ++i) {
    Placed placed{members[i],
                  positions.seconds[i],
                  grouping.confidence[std::size_t(members[i])],
                  positions.errorSeconds[i],
                  positions.driftPpm[i],
                  {}};
    placed.oneClockShift = positions.oneClockShift[i];
    describe(placed, matches);
    group.members.push_back(std::move(placed));
  }
  std::ranges::sort(group.members, {},
                    [](const Placed& p) { return std::pair(p.offsetSeconds, p.file); });
  moveDevicesApart(group, recordings);
  return group;
}

std::string tried(int file, int partners, const Grouping& grouping) {
  const auto unused = std::ranges::find_if(grouping.undecided, [&](const Unused& match) {
    return match.match.best.first == file || match.match.best.second == file;
  });
  if (unused != grouping.undecided.end()) return unused->why;
  if (partners == 0) return "There was nothing to compare it with.";
  return "Its sound was held against " + report::countText(partners, "other recording") +
         " at every offset that seemed possible; none fits along the whole overlap.";
}

}  // namespace

Placement placementOf(const Grouping& grouping, std::span<const align::Recording> recordings,
                      std::span<const int> partners) {
  Placement placement;
  placement.doubts = grouping.doubts;
  for (int g = 0; g < std::ssize(grouping.members); ++g)
    placement.groups.push_back(placedGroup(grouping, g, recordings));
  std::ranges::sort(placement.groups, {}, [](const PlacedGroup& group) {
    const int first = std::ranges::min(group.members, {}, &Placed::file).file;
    return std::pair(-std::ssize(group.members), first);
  });
  for (int file = 0; file < std::ssize(recordings); ++file)
    if (grouping.groupOf[std::size_t(file)] < 0 && recordings[std::size_t(file)].samples > 0)
      placement.alone.push_back({file, tried(file, partners[std::size_t(file)], grouping)});
  return placement;
}

}  // namespace place
