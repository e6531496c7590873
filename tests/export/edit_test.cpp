#include "export/edit.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

#include "export/lanes.h"
#include "tests/export/sample.h"

namespace {

using namespace timeline;

TEST(Edit, ShowsEverythingThatExists) {
  std::mt19937 random(3);
  const auto below = [&](int n) { return static_cast<std::int64_t>(random() % n); };
  for (int round = 0; round < 200; ++round) {
    std::vector<Angle> angles(1 + below(4));
    std::int64_t length = 1;
    for (Angle& angle : angles) {
      angle.recorder = below(2) > 0;
      for (std::int64_t at = below(400); below(4) > 0; at += below(300)) {
        const Span span{at, at + 1 + below(500)};
        if (!angle.recorder) angle.picture.push_back(span);
        angle.sound.push_back(span);
        at = span.end;
        length = std::max(length, at);
      }
    }
    const std::vector<Cut> cuts = edit(angles, length, 50);
    std::int64_t end = 0;
    for (const Cut& cut : cuts) {
      EXPECT_EQ(cut.span.start, end);
      end = cut.span.end;
      const auto shows = [&](const std::vector<Span>& spans, std::int64_t at) {
        return std::ranges::any_of(spans, [&](Span s) { return s.start <= at && at < s.end; });
      };
      for (std::int64_t at = cut.span.start; at < cut.span.end; ++at) {
        const bool picture = std::ranges::any_of(
            angles, [&](const Angle& angle) { return shows(angle.picture, at); });
        const bool sound =
            std::ranges::any_of(angles, [&](const Angle& angle) { return shows(angle.sound, at); });
        ASSERT_EQ(cut.picture >= 0 && shows(angles[cut.picture].picture, at), picture);
        ASSERT_EQ(cut.sound >= 0 && shows(angles[cut.sound].sound, at), sound);
      }
    }
    EXPECT_EQ(end, length);
  }
}

TEST(Edit, PrefersLongTakesRecordersAndNoFlicker) {
  const Angle wide{{{0, 1000}}, {{0, 1000}}, false};
  const Angle close{{{100, 2000}}, {{100, 2000}}, false};
  const Angle recorder{{}, {{50, 1500}}, true};
  EXPECT_EQ(edit(std::vector{wide, close, recorder}, 2000, 50),
            (std::vector<Cut>{
                {{0, 50}, 0, 0}, {{50, 1000}, 0, 2}, {{1000, 1500}, 1, 2}, {{1500, 2000}, 1, 1}}));
  // The second take would be seen for ten frames only, so it begins earlier.
  const Angle first{{{0, 1000}}, {}, false}, second{{{500, 1010}}, {}, false};
  EXPECT_EQ(edit(std::vector{first, second}, 1010, 50),
            (std::vector<Cut>{{{0, 960}, 0, -1}, {{960, 1010}, 1, -1}}));
}

TEST(Phase, BringsPicturesNearestToTheFrames) {
  std::mt19937 random(5);
  std::uniform_real_distribution<double> chance(0, 100);
  for (int round = 0; round < 100; ++round) {
    Project project;
    project.groups = {{"Group 1", {}}};
    for (int i = 0; i < 2 + round % 5; ++i) {
      project.media.push_back(sample::camera("/c" + std::to_string(i) + ".mov", 500));
      project.groups[0].clips.push_back({i, i == 0 ? 0 : chance(random)});
    }
    const auto worst = [&](double phase) {
      double most = 0;
      for (const Clip& clip : project.groups[0].clips) {
        const double frames = (clip.startSeconds + phase) * 25;
        most = std::max(most, std::abs(frames - std::round(frames)));
      }
      return most;
    };
    const double phase = bestPhase(project, project.groups[0], {25, 1});
    EXPECT_LE(std::abs(phase), 0.5 / 25 + 1e-9);
    for (int other = 0; other < 100; ++other) EXPECT_LE(worst(phase), worst(other / 2500.0) + 1e-9);
    if (project.media.size() == 2) {
      EXPECT_LE(worst(phase), 0.25 + 1e-9);  // 20 ms apart at most, not 40
    }
  }
}

}  // namespace
