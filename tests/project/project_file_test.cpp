#include "project/project_file.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "project/check.h"
#include "project/edit.h"
#include "project/file_stamp.h"
#include "project/look_up.h"
#include "report/files.h"
#include "tests/fresh_path.h"
#include "tests/project/sample.h"

namespace project {
namespace {

namespace fs = std::filesystem;

class ProjectFile : public testing::Test {
 protected:
  void SetUp() override {
    for (const char* folder : {"cards/cam", "edit", "elsewhere/deep"})
      fs::create_directories(folder_ / folder);
    write("cards/cam/a.wav", "twelve bytes");
    write("cards/cam/b.wav", "some more bytes");
    Device device;
    for (const char* name : {"cards/cam/a.wav", "cards/cam/b.wav"}) {
      MediaFile& file = device.recordings.emplace_back().files.emplace_back();
      file.path = path(name);
      stamp(file);
    }
    project_ = addDevices({}, {device});
    ASSERT_TRUE(saveProject(project_, path("edit/w.kestrel")).ok());
  }
  void TearDown() override { fs::remove_all(folder_); }

  std::string path(const std::string& name) const { return report::toUtf8(folder_ / name); }
  void write(const std::string& name, const std::string& text) const {
    ASSERT_TRUE(report::writeWhole(folder_ / name, text).ok());
  }
  std::string placeOf(const Project& project, std::size_t number) const {
    return mainFile(project.devices[0].recordings[number]).path;
  }

  const fs::path folder_ = freshPath("kestrel project é");
  Project project_;
};

TEST_F(ProjectFile, OpensAsItWasSaved) {
  const LoadedProject loaded = loadProject(path("edit/w.kestrel"));
  EXPECT_EQ(loaded.project, project_);
  EXPECT_TRUE(loaded.missing.empty());
  EXPECT_TRUE(loaded.moved.empty());
}

TEST_F(ProjectFile, FilesThatMovedAreFoundByNameAndLength) {
  fs::rename(folder_ / "cards/cam/a.wav", folder_ / "edit/a.wav");
  write("cards/cam/b.wav", "another one, with the same name");
  fs::create_directories(folder_ / "edit/deeper");
  LoadedProject loaded = loadProject(path("edit/w.kestrel"));
  ASSERT_TRUE(loaded.project.has_value());
  EXPECT_EQ(loaded.moved, std::vector{path("edit/a.wav")});
  EXPECT_EQ(placeOf(*loaded.project, 0), path("edit/a.wav"));
  EXPECT_EQ(loaded.missing, std::vector{path("cards/cam/b.wav")});
  write("elsewhere/deep/b.wav", "some more bytes");
  EXPECT_EQ(findAgain(*loaded.project, {path("elsewhere")}).size(), 1u);
  EXPECT_EQ(placeOf(*loaded.project, 1), path("elsewhere/deep/b.wav"));
  EXPECT_TRUE(missingFiles(*loaded.project).empty());
}

TEST_F(ProjectFile, MovesWithItsFolder) {
  fs::rename(folder_ / "cards", folder_ / "elsewhere/cards");
  fs::rename(folder_ / "edit", folder_ / "elsewhere/edit");
  const LoadedProject loaded = loadProject(path("elsewhere/edit/w.kestrel"));
  ASSERT_TRUE(loaded.project.has_value());
  EXPECT_EQ(placeOf(*loaded.project, 0), path("elsewhere/cards/cam/a.wav"));
  EXPECT_TRUE(loaded.missing.empty());
}

TEST_F(ProjectFile, WhatCannotBeOpenedIsNamed) {
  write("edit/damaged.kestrel", "{\"kestrel_project\": 1, \"devices\": 7}");
  const LoadedProject loaded = loadProject(path("edit/damaged.kestrel"));
  EXPECT_FALSE(loaded.project.has_value());
  EXPECT_NE(loaded.error.find("damaged.kestrel"), std::string::npos);
  EXPECT_NE(loaded.error.find("devices is no list"), std::string::npos);
  EXPECT_NE(loadProject(path("none.kestrel")).error.find("no such file"), std::string::npos);
  EXPECT_FALSE(saveProject(project_, path("no/such/w.kestrel")).ok());
  EXPECT_TRUE(isProjectPath("A.Kestrel"));
  EXPECT_FALSE(isProjectPath(".kestrel"));
}

TEST(ProjectCheck, FilesAndPlacesThatCannotBeAreAProblem) {
  EXPECT_EQ(problemOf(fullProject()), "");
  using Change = void (*)(Recording&, MediaFacts&, Clip&);
  const Change changes[] = {
      [](Recording& recording, MediaFacts&, Clip&) { recording.heardStream = 2; },
      [](Recording& recording, MediaFacts&, Clip&) { recording.heardStream = -1; },
      [](Recording& recording, MediaFacts&, Clip&) { recording.lengthSeconds = 1e300; },
      [](Recording&, MediaFacts& facts, Clip&) { facts.sounds[0].layout = {"L"}; },
      [](Recording&, MediaFacts& facts, Clip&) { facts.sounds[1].channels = -1; },
      [](Recording&, MediaFacts& facts, Clip&) { facts.picture->rate.units = -7; },
      [](Recording&, MediaFacts& facts, Clip&) { facts.picture->lengthSeconds = -1e18; },
      [](Recording&, MediaFacts& facts, Clip&) { facts.timecode->units = 1LL << 60; },
      [](Recording&, MediaFacts&, Clip& clip) { clip.driftPpm = 1e12; },
      [](Recording&, MediaFacts&, Clip& clip) { clip.oneClockShiftSeconds = -2e9; }};
  for (const Change& change : changes) {
    Project project = fullProject();
    Recording& recording = project.devices[0].recordings[0];
    change(recording, recording.files[0].facts, project.groups[0].clips[0]);
    EXPECT_NE(problemOf(project), "") << &change - changes;
  }
}

}  // namespace
}  // namespace project
