#pragma once

#include <cmath>
#include <cstddef>
#include <vector>

/// By how many samples b must be delayed to lie best on a, from -reach to reach, by the
/// correlation coefficient over a's samples [from, to).
inline int bestDelay(const std::vector<float>& a, const std::vector<float>& b, int from, int to,
                     int reach) {
  int best = 0;
  double most = -1;
  for (int delay = -reach; delay <= reach; ++delay) {
    double sum = 0, power = 1e-9;
    for (int i = from; i < to; ++i)
      if (i - delay >= 0 && i - delay < int(b.size()))
        sum += double(a[std::size_t(i)]) * b[std::size_t(i - delay)],
            power += double(b[std::size_t(i - delay)]) * b[std::size_t(i - delay)];
    if (const double height = sum / std::sqrt(power); height > most) most = height, best = delay;
  }
  return best;
}
