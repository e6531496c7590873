#include "place/consistency.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <utility>

#include "place/growing_groups.h"

namespace place {
namespace {

using OffsetOf = std::map<std::pair<int, int>, double>;

OffsetOf offsetsBothWays(std::span<const align::Match> matches) {
  OffsetOf offsets;
  for (const align::Match& match : matches) {
    offsets[{match.best.first, match.best.second}] = match.best.offsetSeconds;
    offsets[{match.best.second, match.best.first}] = -match.best.offsetSeconds;
  }
  return offsets;
}

Confirmation confirmation(std::span<const align::Recording> recordings,
                          const align::Alignment& direct, const OffsetOf& offsets) {
  const auto seconds = [&](int file) { return align::secondsOf(recordings[std::size_t(file)]); };
  const int a = direct.first, b = direct.second;
  Confirmation thirds;
  for (auto ac = offsets.lower_bound({a, 0}); ac != offsets.end() && ac->first.first == a; ++ac) {
    const int c = ac->first.second;
    const auto cb = offsets.find({c, b});
    if (cb == offsets.end()) continue;
    const double off = std::abs(ac->second + cb->second - direct.offsetSeconds);
    const double allowed = offsetTolerance(std::max({seconds(a), seconds(b), seconds(c)}));
    ++(off < allowed ? thirds.agree : thirds.contradict);
  }
  return thirds;
}

}  // namespace

std::vector<Confirmation> confirmations(std::span<const align::Recording> recordings,
                                        std::span<const align::Match> matches) {
  const OffsetOf offsets = offsetsBothWays(matches);
  std::vector<Confirmation> all;
  for (const align::Match& match : matches)
    all.push_back(confirmation(recordings, match.best, offsets));
  return all;
}

}  // namespace place
