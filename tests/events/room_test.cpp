#include "bench/events/room.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numeric>

namespace events {
namespace {

double energy(const std::vector<float>& h, double fromSeconds) {
  return std::accumulate(h.begin() + std::ptrdiff_t(fromSeconds * kRate), h.end(), 0.0,
                         [](double sum, float v) { return sum + double(v) * v; });
}

// Backward integration: seconds to fall by 60 dB, from how the rest of the energy falls by 20.
double decay(const std::vector<float>& h) {
  const double all = energy(h, 0.03);
  double from = 0.03, to = 0.03;
  while (energy(h, from) > all * std::pow(10, -0.5)) from += 0.01;
  while (energy(h, to) > all * std::pow(10, -2.5)) to += 0.01;
  return 3 * (to - from);
}

TEST(Room, SoundsAsLargeAndFarAsAsked) {
  for (const Room room : {Room{0.4, 6}, Room{1.5, -3}, Room{3.5, -15}})
    for (std::uint64_t seed = 1; seed <= 3; ++seed) {
      Random random(seed);
      const auto h = roomResponse(room, random);
      EXPECT_FLOAT_EQ(h[0], 1);
      EXPECT_NEAR(-10 * std::log10(energy(h, 0) - 1), room.directDb, 1.5);
      EXPECT_NEAR(decay(h) / room.reverbSeconds, 1, 0.3);
    }
}

TEST(Room, TrebleDecaysFirst) {
  Random random(4);
  auto high = roomResponse({2, -10}, random);
  auto low = high;
  for (std::size_t i = high.size() - 1; i > 0; --i)
    high[i] = high[i] - high[i - 1], low[i] = low[i] + low[i - 1];
  EXPECT_LT(energy(high, 0.8) / energy(high, 0.1), 0.8 * energy(low, 0.8) / energy(low, 0.1));
}

TEST(Room, ConvolvingWithAnEchoAddsTheEcho) {
  std::vector<float> sound(50000, 0.0f), response(900, 0.0f);
  sound[0] = 1, sound[30000] = 2, sound[49990] = 1;
  response[0] = 1, response[800] = 0.5f;
  convolve(sound, response);
  EXPECT_NEAR(sound[30000], 2, 1e-4);
  EXPECT_NEAR(sound[30800], 1, 1e-4);
  EXPECT_NEAR(sound[800], 0.5, 1e-4);
  EXPECT_NEAR(sound[20000], 0, 1e-4);
}

}  // namespace
}  // namespace events
