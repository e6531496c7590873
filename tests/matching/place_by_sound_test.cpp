#include <gtest/gtest.h>
#include <omp.h>

#include <tuple>

#include "matching/placement.h"
#include "tests/matching/shoot.h"

namespace matching {
namespace {

Shoot twoEvents(const std::vector<int>& order) {
  const double starts[] = {0, 7.5, 21.25, 2, 0.5, 16};
  Shoot shoot;
  for (const int i : order)
    shoot.add("take" + std::to_string(i), recorded(i / 3, starts[i], 30 + i, 3.0 * i, 0.1));
  return shoot;
}

TEST(PlaceBySound, KeepsEventsApartWhateverTheOrderOfFiles) {
  for (const std::vector<int>& order :
       {std::vector{0, 1, 2, 3, 4, 5}, std::vector{5, 2, 4, 0, 3, 1}}) {
    const Shoot shoot = twoEvents(order);
    const Placement placement = placeBySound(shoot.recordings, {}, shoot.reader());
    ASSERT_EQ(placement.groups.size(), 2u);
    for (const PlacedGroup& group : placement.groups) {
      ASSERT_EQ(group.members.size(), 3u);
      const bool first = order[std::size_t(group.members[0].file)] < 3;
      const double expected[] = {0, first ? 7.5 : 1.5, first ? 21.25 : 15.5};
      for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_NEAR(group.members[i].offsetSeconds, expected[i], 0.001);
        EXPECT_EQ(order[std::size_t(group.members[i].file)] < 3, first);
        EXPECT_GT(group.members[i].confidence, 0.9);
      }
    }
    EXPECT_TRUE(placement.alone.empty());
  }
}

// All that a placement says of its recordings.
std::vector<std::tuple<int, double, double, double>> told(const Placement& placement) {
  std::vector<std::tuple<int, double, double, double>> all;
  for (const PlacedGroup& group : placement.groups)
    for (const Placed& p : group.members)
      all.emplace_back(p.file, p.offsetSeconds, p.confidence, p.errorSeconds.value_or(-1));
  return all;
}

TEST(PlaceBySound, IsTheSameToTheLastBitInAnyNumberOfThreads) {
  const Shoot shoot = twoEvents({3, 0, 5, 1, 4, 2});
  const int usual = omp_get_max_threads();
  omp_set_num_threads(1);
  const auto alone = told(placeBySound(shoot.recordings, {}, shoot.reader()));
  omp_set_num_threads(5);
  const auto together = told(placeBySound(shoot.recordings, {}, shoot.reader()));
  omp_set_num_threads(usual);
  EXPECT_EQ(alone.size(), 6u);
  EXPECT_EQ(alone, together);
}

TEST(PlaceBySound, NamesTheOffsetsAtWhichALoopFitsAndPlacesNothingByThem) {
  constexpr double kPeriod = 5;
  Shoot shoot;
  shoot.add("a", recorded(1, 0, 40, 0, 0.05, kPeriod));
  shoot.add("b", recorded(1, 13, 40, 0, 0.05, kPeriod));
  const Placement placement = placeBySound(shoot.recordings, {}, shoot.reader());
  EXPECT_TRUE(placement.groups.empty());
  ASSERT_EQ(placement.alone.size(), 2u);
  EXPECT_NE(placement.alone[0].tried.find("repeats"), std::string::npos);
}

TEST(PlaceBySound, LeavesAloneWhatMatchesNothing) {
  Shoot shoot;
  shoot.add("a", recorded(1, 0, 20));
  shoot.add("b", recorded(1, 5, 20));
  shoot.add("stranger", recorded(2, 1, 20));
  shoot.add("silence", std::vector<float>(20 * kSampleRate, 0.0f));
  shoot.add("blip", recorded(1, 3, 0.3));
  shoot.add("nothing", {});
  const Placement placement = placeBySound(shoot.recordings, {}, shoot.reader());
  ASSERT_EQ(placement.groups.size(), 1u);
  EXPECT_EQ(placement.groups[0].members.size(), 2u);
  ASSERT_EQ(placement.alone.size(), 3u);  // an entry without sound is no recording
  for (const Alone& alone : placement.alone) EXPECT_FALSE(alone.tried.empty());
}

}  // namespace
}  // namespace matching
