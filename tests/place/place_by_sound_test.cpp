#include <gtest/gtest.h>
#include <omp.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <string>
#include <tuple>

#include "place/pair_search.h"
#include "place/placement.h"
#include "tests/align/shoot.h"

namespace place {
namespace {

using namespace align;  // shoots and what they record

// A device that runs from `start` on for so long, while for 15 s something happens at 100 s and
// again at 160 s.
std::vector<float> recordedWait(double start, double seconds, float deep) {
  std::vector<float> samples = waiting(unsigned(start) + 9, seconds, deep);
  for (const double when : {100.0, 160.0}) {
    const std::vector<float> heard = recorded(1, when, 15, 0, 0);
    const auto at = static_cast<std::ptrdiff_t>(std::lround((when - start) * kSampleRate));
    for (std::ptrdiff_t i = 0; i < std::ssize(heard); ++i)
      if (at + i >= 0 && at + i < std::ssize(samples))
        samples[std::size_t(at + i)] += heard[std::size_t(i)];
  }
  return samples;
}

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

TEST(PlaceBySound, HandsOnWhichRecordingCannotBeRead) {
  const Shoot shoot = twoEvents({0, 1, 2, 3, 4, 5});
  const SoundReader all = shoot.reader();
  const SoundReader damaged = [&](int file, std::int64_t first, std::int64_t count) {
    return file == 2 ? throw UnreadableSound(file) : all(file, first, count);
  };
  try {
    (void)placeBySound(shoot.recordings, {}, damaged);
    FAIL() << "it was taken for something";
  } catch (const UnreadableSound& lost) {
    EXPECT_EQ(lost.file, 2);
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

// A tenth of what the recordings have in common is more than their own noise.
TEST(PlaceBySound, TellsThePlaceOfRecordingsThatMostlyWait) {
  Shoot shoot;
  shoot.add("recorder", recordedWait(0, 300, 0.9f));
  shoot.add("camera", recordedWait(20.5, 240, 0.3f));
  std::vector<float> muted = recordedWait(70.25, 120, 0.5f);
  std::fill(muted.begin(), muted.begin() + 25 * kSampleRate, 0.0f);
  shoot.add("muted at first", muted);
  const Placement placement = placeBySound(shoot.recordings, {}, shoot.reader());
  ASSERT_EQ(placement.groups.size(), 1u);
  ASSERT_EQ(placement.groups[0].members.size(), 3u);
  const double starts[] = {0, 20.5, 70.25};
  for (const Placed& member : placement.groups[0].members)
    EXPECT_NEAR(member.offsetSeconds, starts[member.file], 0.001);
}

// In sets of some size a pair whose places are known is left in peace, until the groups turn out
// not to hold it.
TEST(PairSearch, ListensToWhatOnlySeemedConnected) {
  Shoot shoot;
  for (const double start : {0, 5, 9}) shoot.add("take", recorded(1, start, 20));
  for (int i = 0; i < 12; ++i) shoot.add("blip", recorded(1, 3, 0.3));
  const SoundReader reader = shoot.reader();
  const PlacementProgress progress;
  PairSearch search(shoot.recordings, reader, progress);
  std::vector<vote::PairCandidates> candidates = {{0, 1, {5.0}, 20}, {1, 2, {4.0}, 20}};
  search.followVotes(candidates);
  candidates.push_back({0, 2, {13.0}, 20});
  search.followVotes(candidates);
  EXPECT_FALSE(search.heard(0, 2));
  Grouping grouping;
  grouping.members = {{0, 1}};
  grouping.position.resize(shoot.recordings.size(), 0.0);
  search.standBy(grouping);
  search.followVotes(candidates);
  EXPECT_TRUE(search.heard(0, 2));
}

// Votes name a pair once; envelopes, and what a group implies, name it again the other way round.
TEST(PairSearch, APairHeardTwiceIsHeardOnce) {
  Shoot shoot;
  shoot.add("a", recorded(1, 0, 40));
  shoot.add("b", recorded(1, 12.5, 40));
  const SoundReader sound = shoot.reader();
  const PlacementProgress progress;
  PairSearch search(shoot.recordings, sound, progress);
  search.followVotes(std::vector<vote::PairCandidates>{{0, 1, {12.5}, 9}, {1, 0, {-12.5}, 8}});
  ASSERT_EQ(search.matches().size(), 1u);
  EXPECT_TRUE(search.matches()[0].rivals.empty());
  EXPECT_TRUE(search.heard(1, 0));
}

}  // namespace
}  // namespace place
