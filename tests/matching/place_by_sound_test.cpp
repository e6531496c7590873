#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <complex>
#include <numbers>
#include <random>

#include "matching/correlate.h"
#include "matching/direct.h"
#include "matching/group.h"
#include "matching/listening.h"
#include "matching/placement.h"

namespace matching {
namespace {

/// What a device with that clock records of an event from `start` on: tones that come and go, known
/// at every moment, so that a recording may start between two samples.
std::vector<float> recorded(int event, double start, double seconds, double driftPpm = 0,
                            double noise = 0.02) {
  constexpr double kBeat = 0.2;  // seconds from one change of the tones to the next
  constexpr int kTones = 12;
  std::vector<float> samples(static_cast<std::size_t>(seconds * kSampleRate));
  const double step = 1.0 / kSampleRate / (1 + driftPpm * 1e-6);
  std::mt19937 hiss(static_cast<unsigned>(1000 * start) + 7);
  std::normal_distribution<float> normal;
  std::vector<double> hertz(kTones);
  long beat = -1;
  for (std::size_t n = 0; n < samples.size(); ++n) {
    const double t = start + double(n) * step;
    if (const long now = static_cast<long>(t / kBeat); now != beat) {
      beat = now;
      std::mt19937 tones(static_cast<unsigned>(event * 100003 + beat));
      for (double& h : hertz) h = 200 + tones() % 3000;
    }
    const double phase = t - double(beat) * kBeat;
    double sum = 0;
    for (const double h : hertz) sum += std::sin(2 * std::numbers::pi * h * phase);
    sum *= std::sin(std::numbers::pi * phase / kBeat);
    samples[n] = static_cast<float>(0.02 * sum) + static_cast<float>(noise) * normal(hiss);
  }
  return samples;
}

struct Shoot {
  std::vector<std::vector<float>> sounds;
  std::vector<Recording> recordings;

  void add(std::string name, std::vector<float> sound, int device = -1) {
    recordings.push_back({std::move(name), std::ssize(sound), device});
    sounds.push_back(std::move(sound));
  }
  SoundReader reader() const {
    return [this](int file, std::int64_t first, std::int64_t count) {
      std::vector<float> piece(static_cast<std::size_t>(count), 0.0f);
      const auto& sound = sounds[static_cast<std::size_t>(file)];
      for (std::int64_t i = 0; i < count; ++i)
        if (first + i >= 0 && first + i < std::ssize(sound))
          piece[std::size_t(i)] = sound[std::size_t(first + i)];
      return piece;
    };
  }
  Alignment verified(double offset) const {
    const Pair pair{0, 1, recordings[0].samples, recordings[1].samples};
    const SoundReader sound = reader();
    return Listening(pair, offset, sound).exact();
  }
};

TEST(Listening, FindsAnOffsetBetweenTwoSamples) {
  for (const double start : {3.0, 3.00004, 3.0301}) {
    SCOPED_TRACE(start);
    Shoot shoot;
    shoot.add("a", recorded(1, 0, 25));
    shoot.add("b", recorded(1, start, 20));
    const Alignment found = shoot.verified(3.02);
    EXPECT_TRUE(believed(found));
    EXPECT_NEAR(found.offsetSeconds, start, 0.1 / kSampleRate);
    EXPECT_FALSE(believed(shoot.verified(8.0)));
  }
}

TEST(Listening, MeasuresTheDriftOfTwoClocks) {
  Shoot shoot;
  shoot.add("a", recorded(1, 0, 130, 20));
  shoot.add("b", recorded(1, 5, 120, -25));
  const Alignment found = shoot.verified(5.0);
  EXPECT_NEAR(found.driftPpm, -45, 0.5);
  const double middle = 65;  // where the position is right
  EXPECT_NEAR(found.offsetSeconds, middle * 1.00002 - (middle - 5) * 0.999975, 0.0001);
}

TEST(DirectSound, IsThePeakWhoseEchoesExplainTheOthers) {
  // b hears an echo 80 samples late and louder than the direct sound, which stands 80 samples later
  // in the correlation than the line through the highest peak; as seen from b it is the reverse.
  const std::vector<ResponsePeak> loudEchoInB{{0, 1.0f}, {80, 0.8f}},
      loudEchoInA{{0, 1.0f}, {-80, 0.8f}};
  std::vector<float> dry(281, 0.0f), echo(281, 0.0f);
  echo[80] = 0.8f;
  EXPECT_EQ(directSound(loudEchoInB, dry, echo).shiftSamples, 80);
  EXPECT_EQ(directSound(loudEchoInA, echo, dry).shiftSamples, -80);
  EXPECT_GT(directSound(loudEchoInB, dry, dry).doubtSamples, 0);
}

Match match(int first, int second, double offset, double strength,
            std::vector<double> rivals = {}) {
  const auto alignment = [&](double at) {
    Alignment a{.first = first, .second = second, .offsetSeconds = at};
    a.strength = strength, a.support = a.windows = 10, a.confidence = 0.99, a.overlapSeconds = 50;
    return a;
  };
  Match m{alignment(offset), {}};
  for (const double rival : rivals) m.rivals.push_back(alignment(rival));
  return m;
}

std::vector<Recording> fourMinutesEach(std::vector<int> devices) {
  std::vector<Recording> recordings;
  for (const int device : devices)
    recordings.push_back({"file" + std::to_string(recordings.size()), 240 * kSampleRate, device});
  return recordings;
}

TEST(FormGroups, DropsTheMatchThatTheOthersContradict) {
  const auto recordings = fourMinutesEach({-1, -1, -1, -1});
  std::vector<Match> matches{match(0, 1, 10, 30), match(1, 2, 20, 30),  match(0, 2, 30, 30),
                             match(1, 3, 5, 20),  match(2, 3, -15, 20), match(0, 3, 90, 40)};
  std::ranges::sort(matches, std::greater{}, [](const Match& m) { return m.best.offsetSeconds; });
  const Grouping grouping = formGroups(recordings, matches);
  ASSERT_EQ(grouping.members.size(), 1u);
  EXPECT_EQ(grouping.members[0].size(), 4u);
  EXPECT_NEAR(grouping.position[3] - grouping.position[0], 15, 1e-9);
  ASSERT_EQ(grouping.doubts.size(), 1u);
  EXPECT_NE(grouping.doubts[0].find("file0 and file3"), std::string::npos);
}

TEST(FormGroups, TakesTheRivalThatAgrees) {
  const auto recordings = fourMinutesEach({-1, -1, -1});
  const Grouping grouping =
      formGroups(recordings, {match(0, 1, 10, 40), match(1, 2, 20, 40), match(0, 2, 46, 30, {30})});
  EXPECT_NEAR(grouping.position[2] - grouping.position[0], 30, 1e-9);
  EXPECT_EQ(grouping.kept.size(), 3u);
}

TEST(FormGroups, NeverLaysADevicesFilesOverEachOther) {
  const auto recordings = fourMinutesEach({7, 7, -1});
  const Grouping grouping = formGroups(recordings, {match(0, 2, 10, 40), match(1, 2, 20, 30)});
  EXPECT_EQ(grouping.members, (std::vector<std::vector<int>>{{0, 2}}));
  EXPECT_EQ(grouping.doubts.size(), 1u);
}

// Two events, three recordings each; no votes, so that everything is found in the sound.
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
