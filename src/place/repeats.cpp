#include "place/repeats.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <map>

namespace place {
namespace {

/// Matches between the same two groups, and how these may lie.
struct Bridge {
  std::vector<align::Match*> matches;
  double shift = 0, weight = 0, nextWeight = 0;

  bool decided() const { return weight > 0 && nextWeight < kClearly * weight; }
};

// The two groups' order decides the sign of a shift; all of a bridge must see it alike.
double shiftBetween(const align::Alignment& a, GrowingGroups& groups) {
  const double shift = groups.shift(a);
  return groups.group(a.first) < groups.group(a.second) ? shift : -shift;
}

bool gives(const align::Alignment& a, double shift, GrowingGroups& groups) {
  return std::abs(shiftBetween(a, groups) - shift) < kSameOffset;
}

// What speaks for one shift: of every match the offset nearest to it that agrees.
double weightAt(double shift, std::span<align::Match* const> matches, GrowingGroups& groups) {
  double sum = 0;
  for (const align::Match* match : matches) {
    double most = 0;
    for (const align::Alignment& a : align::allOf(*match))
      if (gives(a, shift, groups)) most = std::max(most, align::weightOf(a));
    sum += most;
  }
  return sum;
}

void weigh(Bridge& bridge, GrowingGroups& groups) {
  std::map<double, double> weightOfShift;
  for (const align::Match* match : bridge.matches)
    for (const align::Alignment& a : align::allOf(*match)) {
      const double shift = shiftBetween(a, groups);
      weightOfShift[shift] = weightAt(shift, bridge.matches, groups);
    }
  for (const auto& [shift, weight] : weightOfShift)
    if (weight > bridge.weight) bridge.shift = shift, bridge.weight = weight;
  for (const auto& [shift, weight] : weightOfShift)
    if (std::abs(shift - bridge.shift) > kSameOffset)
      bridge.nextWeight = std::max(bridge.nextWeight, weight);
}

bool possible(const Bridge& bridge, GrowingGroups& groups) {
  for (const align::Match* match : bridge.matches)
    for (const align::Alignment& a : align::allOf(*match))
      if (gives(a, bridge.shift, groups) && !groups.possible(a)) return false;
  return true;
}

// The decided bridge with most weight between any two groups, if there is one.
std::optional<Bridge> bestBridge(std::vector<align::Match>& open, GrowingGroups& groups) {
  std::map<std::pair<int, int>, Bridge> bridges;
  for (align::Match& match : open)
    if (!groups.together(match.best))
      bridges[std::minmax(groups.group(match.best.first), groups.group(match.best.second))]
          .matches.push_back(&match);
  std::optional<Bridge> best;
  for (auto& [ends, bridge] : bridges) {
    weigh(bridge, groups);
    if (bridge.decided() && possible(bridge, groups) && (!best || bridge.weight > best->weight))
      best = bridge;
  }
  return best;
}

// The offset of the match that gives the shift becomes its best.
bool leadWith(align::Match& match, double shift, GrowingGroups& groups) {
  if (gives(match.best, shift, groups)) return true;
  const auto rival = std::ranges::find_if(
      match.rivals, [&](const align::Alignment& a) { return gives(a, shift, groups); });
  if (rival == match.rivals.end()) return false;
  std::swap(match.best, *rival);
  return true;
}

}  // namespace

void dropMereRepeats(std::vector<align::Match>& matches) {
  std::map<int, double> strongest;  // by file
  for (const align::Match& m : matches)
    if (!m.best.copy)
      for (const int file : {m.best.first, m.best.second})
        strongest[file] = std::max(strongest[file], m.best.strength);
  std::erase_if(matches, [&](const align::Match& m) {
    const double usual = std::min(strongest[m.best.first], strongest[m.best.second]);
    return !m.rivals.empty() && m.best.strength < kPartOfIt * usual;
  });
}

bool standsOut(align::Match& match, GrowingGroups& groups) {
  Bridge bridge{{&match}};
  weigh(bridge, groups);
  return bridge.decided() && leadWith(match, bridge.shift, groups) && groups.possible(match.best);
}

void joinByConsensus(std::vector<align::Match>& open, std::vector<align::Match>& kept,
                     GrowingGroups& groups) {
  while (const auto bridge = bestBridge(open, groups)) {
    std::vector<const align::Match*> used;
    for (align::Match* match : bridge->matches)
      if (leadWith(*match, bridge->shift, groups)) used.push_back(match);
    groups.join((*std::ranges::max_element(used, {}, [](const align::Match* m) {
                  return align::weightOf(m->best);
                }))->best);
    for (const align::Match* match : used) kept.push_back(*match);
    std::erase_if(open, [&](const align::Match& m) { return std::ranges::count(used, &m) > 0; });
  }
}

}  // namespace place
