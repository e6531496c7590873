#include "project/edit.h"

#include <gtest/gtest.h>

#include <array>

#include "project/check.h"
#include "project/history.h"
#include "project/look_up.h"

namespace project {
namespace {

/// Three devices with recordings 2 3 | 5 6 | 8; 2 and 5 stand in one group, 3 and 6 in another.
Project sample() {
  std::vector<Device> devices(3);
  for (std::size_t i = 0; i < 5; ++i) {
    Recording& recording = devices[i / 2].recordings.emplace_back();
    recording.files.resize(1);
    recording.files[0].path = "/clip" + std::to_string(i) + ".mov";
    recording.lengthSeconds = 10;
  }
  for (Device& device : devices) device.name = nameOfFile(device.recordings[0].files[0].path);
  Project project = addDevices({}, devices);
  const auto clip = [](Id id, double start) {
    Clip made;
    made.recording = id;
    made.startSeconds = start;
    made.confidence = 0.8;
    made.errorSeconds = 0.001;
    return made;
  };
  project.groups = {{20, "Group 1", {clip(2, 0), clip(5, 4)}, {}},
                    {21, "Group 2", {clip(3, 0), clip(6, 7)}, {}}};
  project.evidence = {{2, 8, {{3, 9}, {40, 5}}, {}}, {8, 5, {{1.005, 7}}, {}}};
  return project;
}

std::vector<Id> recordingsOf(const Device& device) {
  std::vector<Id> ids;
  for (const Recording& recording : device.recordings) ids.push_back(recording.id);
  return ids;
}

double startOf(const Project& project, Id id) { return clipOf(project, id)->startSeconds; }

TEST(Edit, MovedClipsArePlacedByHandAndOthersStay) {
  const Project before = sample();
  const Project after = moveClips(before, std::array{5}, -0.001);
  EXPECT_DOUBLE_EQ(startOf(after, 5), 3.999);
  EXPECT_EQ(clipOf(after, 5)->placedBy, PlacedBy::hand);
  EXPECT_FALSE(clipOf(after, 5)->errorSeconds.has_value());
  EXPECT_EQ(*clipOf(after, 2), *clipOf(before, 2));
  EXPECT_EQ(after.groups[1], before.groups[1]);
  const Project first = moveClips(before, std::array{5}, -6);  // clips stay in order
  EXPECT_EQ(first.groups[0].clips[0].recording, 5);
  EXPECT_EQ(moveClips(before, std::array{99}, 1), before);
}

TEST(Edit, ClipsGoBetweenGroupsAndEmptyGroupsGo) {
  Project project = placeClip(sample(), 8, 20, 2.5);
  EXPECT_EQ(groupOf(project, 8)->id, 20);
  EXPECT_EQ(startOf(project, 8), 2.5);
  project = placeClip(std::move(project), 3, 20, -1);
  EXPECT_EQ(startOf(project, 3), -1);
  ASSERT_EQ(project.groups.size(), 2u);
  project = unplaceClips(std::move(project), std::array{6});
  EXPECT_EQ(project.groups.size(), 1u);
  EXPECT_TRUE(findRecording(project, 6)->leftOut.has_value());
  project = placeClip(std::move(project), 6, 0, 0);  // a group of its own
  EXPECT_EQ(groupOf(project, 6)->name, "Group 2");
  EXPECT_FALSE(findRecording(project, 6)->leftOut.has_value());
  const Project joined = joinGroups(sample(), 20, 21, 100);
  EXPECT_EQ(joined.groups.size(), 1u);
  EXPECT_EQ(startOf(joined, 6), 107);
  EXPECT_EQ(problemOf(joined), "");
}

TEST(Edit, WhatWasDecidedShowsAsState) {
  const Project project = sample();
  const auto state = [](const Project& changed) {
    return stateOf(changed, *findRecording(changed, 5));
  };
  EXPECT_EQ(state(project), State::lookHere);  // 80 % sure
  EXPECT_EQ(state(confirmClips(project, std::array{5}, true)), State::sure);
  EXPECT_EQ(state(excludeClips(project, std::array{5}, true)), State::excluded);
  EXPECT_EQ(state(moveClips(project, std::array{5}, 1)), State::byHand);
  EXPECT_EQ(stateOf(project, *findRecording(project, 8)), State::unplaced);
  EXPECT_TRUE(clipOf(pinClips(project, std::array{5}, true), 5)->pinned);
}

TEST(Edit, LikelyPlacesAreTheWeightiestFirst) {
  const auto places = likelyPlaces(sample(), 8);
  ASSERT_EQ(places.size(), 2u);  // 3.000 and 2.995 are one
  EXPECT_EQ(places[0].startSeconds, 3);
  EXPECT_EQ(places[0].group, 20);
  EXPECT_EQ(places[1].startSeconds, 40);
  EXPECT_EQ(likelyPlaces(moveClips(sample(), std::array{2}, 5), 8)[0].startSeconds, 8);
}

TEST(Edit, DevicesAreJoinedSplitAndOrdered) {
  const Project project = sample();
  const Project joined = joinDevices(project, std::array{4, 7, 7, 99});
  ASSERT_EQ(joined.devices.size(), 2u);
  EXPECT_EQ(recordingsOf(joined.devices[1]), (std::vector{5, 6, 8}));
  const Project split = splitDevice(joined, std::array{6, 2}, "New");
  ASSERT_EQ(split.devices.size(), 3u);
  EXPECT_EQ(split.devices[2].name, "New");
  EXPECT_EQ(recordingsOf(split.devices[2]), (std::vector{6, 2}));
  EXPECT_EQ(splitWholly(joined, 4).devices.size(), 4u);
  EXPECT_EQ(recordingsOf(moveRecordings(project, std::array{8, 3}, 4, 6).devices[1]),
            (std::vector{5, 8, 3, 6}));
  EXPECT_EQ(moveRecordings(project, std::array{8}, 4).devices.size(), 2u);  // 7 is empty
  EXPECT_EQ(moveRecordings(project, std::array{5}, 4, 5), project);
  EXPECT_EQ(moveDevice(project, 7, 1).devices[0].id, 7);
  EXPECT_EQ(renameDevice(project, 4, "Left").devices[1].name, "Left");
  for (const Project& changed : {joined, split}) EXPECT_EQ(problemOf(changed), "");
}

TEST(Edit, AddingKnowsFilesAndRemovingTakesAllWithIt) {
  const Project project = sample();
  EXPECT_EQ(addDevices(project, project.devices), project);
  const Project less = removeRecordings(project, std::array{8, 5});
  EXPECT_EQ(less.devices.size(), 2u);
  EXPECT_EQ(less.groups[0].clips.size(), 1u);
  EXPECT_TRUE(less.evidence.empty());
  EXPECT_EQ(problemOf(less), "");
}

TEST(History, GoesBackAndForth) {
  const Project start = sample();
  History history(start);
  history.advance(moveClips(start, std::array{5}, 1), "Move");
  history.advance(history.now(), "Nothing");  // no step
  history.advance(renameDevice(history.now(), 1, "A"), "Rename");
  EXPECT_TRUE(history.changed());
  EXPECT_EQ(history.undoName(), "Rename");
  history.undo();
  EXPECT_EQ(history.redoName(), "Rename");
  history.undo();
  EXPECT_EQ(history.now(), start);
  EXPECT_FALSE(history.canUndo());
  EXPECT_FALSE(history.changed());
  history.redo();
  EXPECT_EQ(startOf(history.now(), 5), 5);
  history.advance(start, "Other");
  EXPECT_FALSE(history.canRedo());
}

}  // namespace
}  // namespace project
