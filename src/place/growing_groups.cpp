#include "place/growing_groups.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace place {
namespace {

constexpr double kDeviceOverlap = 0.15;  // seconds that padding may add to a device's files

}  // namespace

GrowingGroups::GrowingGroups(std::span<const align::Recording> recordings)
    : recordings_(recordings), forest_(static_cast<int>(recordings.size())) {
  for (int file = 0; file < std::ssize(recordings); ++file) members_.push_back({file});
}

bool GrowingGroups::agrees(const align::Alignment& a) {
  const double longest = std::max(align::secondsOf(recordings_[std::size_t(a.first)]),
                                  align::secondsOf(recordings_[std::size_t(a.second)]));
  return std::abs(shift(a)) < offsetTolerance(longest) + 2 * a.errorSeconds;
}

bool GrowingGroups::suitsDevices(const align::Alignment& a) {
  if (together(a)) return agrees(a);
  for (const int x : membersWith(a.first))
    for (const int y : membersWith(a.second))
      if (overlapOnDevice(x, y, shift(a)) > kDeviceOverlap) return false;
  return true;
}

void GrowingGroups::join(const align::Alignment& a) {
  std::vector<int> all = membersWith(a.first);
  std::ranges::copy(membersWith(a.second), std::back_inserter(all));
  forest_.join(a.first, a.second, a.offsetSeconds);
  members_[std::size_t(group(a.first))] = std::move(all);
}

double GrowingGroups::overlapOnDevice(int x, int y, double shift) {
  const align::Recording &a = recordings_[std::size_t(x)], &b = recordings_[std::size_t(y)];
  if (a.device < 0 || a.device != b.device) return 0;
  const double startB = position(y) + shift;
  return std::min(position(x) + align::secondsOf(a), startB + align::secondsOf(b)) -
         std::max(position(x), startB);
}

}  // namespace place
