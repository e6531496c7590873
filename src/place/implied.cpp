#include "place/implied.h"

#include <algorithm>
#include <functional>

namespace place {
namespace {

constexpr double kEnoughToHear = 6;  // seconds of overlap in which a pair would have been heard
constexpr std::size_t kTested = 6;   // implied pairs that tell a repetition from a right bridge

}  // namespace

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

std::vector<Implied> untestedBy(const align::Alignment& bridge, GrowingGroups& groups,
                                std::span<const align::Recording> recordings, const Heard& heard) {
  std::vector<Implied> pairs = impliedBy(bridge, groups, recordings);
  const std::size_t all = pairs.size();
  std::erase_if(pairs, [&](const Implied& pair) { return heard(pair.first, pair.second); });
  const std::size_t known = all - pairs.size();
  pairs.resize(std::min(pairs.size(), kTested - std::min(kTested, known)));
  return pairs;
}

}  // namespace place
