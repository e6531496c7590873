#include "project/clock_placement.h"

#include <gtest/gtest.h>

#include "project/edit.h"
#include "project/look_up.h"

namespace project {
namespace {

/// A camera whose clips of 60 s were begun at `times` by its clock.
Project shoot(const std::vector<std::int64_t>& times) {
  Device camera;
  for (const std::int64_t time : times) {
    Recording& recording = camera.recordings.emplace_back();
    recording.files.resize(1);
    recording.files[0].path = "/" + std::to_string(camera.recordings.size()) + ".mov";
    recording.files[0].facts.recordedAt = time;
    recording.lengthSeconds = 60;
  }
  return addDevices({}, {camera});
}

Id idOf(const Project& project, std::size_t number) {
  return project.devices[0].recordings[number].id;
}

/// The project with recordings 0, 1 ... standing at `starts` by their sound.
Project withPlaces(Project project, const std::vector<double>& starts) {
  Group group;
  group.id = freshId(project);
  group.name = "Group 1";
  for (std::size_t i = 0; i < starts.size(); ++i) {
    group.clips.emplace_back().recording = idOf(project, i);
    group.clips.back().startSeconds = starts[i];
  }
  project.groups = {group};
  return project;
}

TEST(ClockPlacement, TheClockOfPlacedClipsPlacesTheOthers) {
  const Project before = withPlaces(shoot({1000'000, 1000'100, 1000'300, 999'800}), {20, 120.6});
  const Project after = placeByClock(before);
  const Clip* later = clipOf(after, idOf(after, 2));
  ASSERT_NE(later, nullptr);
  EXPECT_EQ(later->placedBy, PlacedBy::clock);
  EXPECT_NEAR(later->startSeconds, 320, 1);
  EXPECT_EQ(later->errorSeconds, 2);
  EXPECT_NEAR(clipOf(after, idOf(after, 3))->startSeconds, -180, 1);
  EXPECT_EQ(*clipOf(after, idOf(after, 0)), *clipOf(before, idOf(before, 0)));
  EXPECT_EQ(stateOf(after, after.devices[0].recordings[2]), State::byClock);
  EXPECT_EQ(placeByClock(after), after) << "again gives the same";
}

TEST(ClockPlacement, DoubtfulClocksPlaceNothing) {
  const auto placed = [](const Project& project) {
    return clipOf(placeByClock(project), idOf(project, 2)) != nullptr;
  };
  EXPECT_FALSE(placed(withPlaces(shoot({1000, 1100, 1300}), {0})));       // one clip alone
  EXPECT_FALSE(placed(withPlaces(shoot({1000, 1100, 1300}), {0, 107})));  // the clock jumped
  EXPECT_FALSE(placed(withPlaces(shoot({0, 0, 0}), {0, 100})));           // no clock
  Project unusable = withPlaces(shoot({1000, 1100, 1300}), {0, 100});
  EXPECT_TRUE(placed(unusable));
  unusable.devices[0].recordings[2].usable = false;
  EXPECT_FALSE(placed(unusable));
}

TEST(ClockPlacement, NoneStandsOverAnotherOfItsDevice) {
  // begun 59 s after another of 60 s: a rounded clock, so it follows; 30 s after: never
  const Project near = placeByClock(withPlaces(shoot({1000, 1100, 1159}), {0, 100}));
  EXPECT_DOUBLE_EQ(clipOf(near, idOf(near, 2))->startSeconds, 160);
  const Project over = placeByClock(withPlaces(shoot({1000, 1100, 1130}), {0, 100}));
  EXPECT_EQ(clipOf(over, idOf(over, 2)), nullptr);
}

TEST(ClockPlacement, WhereOneTellsNoTimeFilesTimesCountForAll) {
  Project project = withPlaces(shoot({1000, 0, 1300}), {0, 100});
  for (std::size_t i = 0; i < 3; ++i)
    project.devices[0].recordings[i].files[0].modified = 5060 + 100 * std::int64_t(i);
  const Project after = placeByClock(project);
  EXPECT_NEAR(clipOf(after, idOf(after, 2))->startSeconds, 200, 1e-9);
}

}  // namespace
}  // namespace project
