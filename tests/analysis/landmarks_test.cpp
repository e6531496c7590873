#include "analysis/landmarks.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "analysis/collection.h"

namespace {

using analysis::Landmark;
using analysis::Peak;

TEST(Landmarks, LimitsOfTheZoneAreOutsideAndNineTargetsAreKept) {
  struct Case {
    Peak target;
    std::size_t pairs;
  };
  const Peak anchor{100, 60, 1};
  const Case cases[] = {{{100, 65, 1}, 0}, {{101, 60, 1}, 1}, {{162, 60, 1}, 1}, {{163, 60, 1}, 0},
                        {{110, 90, 1}, 1}, {{110, 91, 1}, 0}, {{110, 30, 1}, 1}, {{110, 29, 1}, 0}};
  for (const auto& [target, pairs] : cases) {
    SCOPED_TRACE(testing::Message() << target.frame << ", " << target.bin);
    EXPECT_EQ(analysis::pairPeaks(std::vector{target, anchor}, {}).size(), pairs);
  }
  std::vector<Peak> crowd;
  for (int bin = 30; bin < 50; ++bin) crowd.push_back({120, bin, 1});
  crowd.push_back({100, 40, 1});
  const auto landmarks = analysis::pairPeaks(crowd, {});
  ASSERT_EQ(landmarks.size(), 9u);
  EXPECT_EQ(landmarks.front(), (Landmark{100, 20, 40, 30}));
  EXPECT_EQ(landmarks.back(), (Landmark{100, 20, 40, 38}));
}

TEST(Landmarks, HashIsDecimalAndSharedByDesign) {
  EXPECT_EQ(analysis::hashOf({7, 62, 191, 190}), 19'191'000'062u);
  EXPECT_EQ(analysis::hashOf({0, 5, 150, 1}), analysis::hashOf({9, 5, 50, 2}));
}

TEST(Landmarks, SortingIsStable) {
  std::mt19937 random(3);
  std::vector<Landmark> landmarks(5000);
  for (std::uint32_t i = 0; Landmark & landmark : landmarks) {
    landmark = {i++, static_cast<std::uint16_t>(1 + random() % 2),
                static_cast<std::uint8_t>(random() % 192),
                static_cast<std::uint8_t>(random() % 8 * 27)};
  }
  const analysis::MatrixXLI sorted = analysis::Collection({landmarks}).sorted().matrix();
  std::ranges::stable_sort(landmarks, {}, analysis::hashOf);
  EXPECT_EQ(sorted, analysis::asMatrix(landmarks, 5));
}

}  // namespace
