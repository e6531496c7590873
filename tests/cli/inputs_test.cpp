#include "cli/inputs.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "project/edit.h"
#include "project/project_file.h"
#include "report/files.h"
#include "run/entries.h"
#include "tests/fresh_path.h"

namespace {

namespace fs = std::filesystem;
using Strings = std::vector<std::string>;

cli::Inputs collected(const Strings& entries, const std::vector<Strings>& devices = {},
                      const Strings& lists = {}) {
  cli::Arguments arguments;
  arguments.entries = entries;
  arguments.devices = devices;
  arguments.lists = lists;
  return cli::collectInputs(arguments);
}

class Inputs : public testing::Test {
 protected:
  void SetUp() override {
    fs::create_directories(folder_ / "card/CLIP");
    fs::create_directories(folder_ / ".trash");
    fs::create_directories(folder_ / "empty");
    for (const char* name :
         {"b.MOV", "a.wav", "notes.txt", "._b.MOV", ".trash/c.mov", "card/CLIP/ü.mts", "10.mts",
          "9.mts", "b.MOV_temporary_file_to_be_deleted.wav"})
      (void)report::writeWhole(folder_ / report::fromUtf8(name), "x");
  }
  void TearDown() override { fs::remove_all(folder_); }

  std::string path(const char* name) const { return report::toUtf8(folder_) + "/" + name; }

  const fs::path folder_ = freshPath("kestrel [inputs] é");
};

TEST_F(Inputs, FoldersGiveTheirMediaFilesSorted) {
  const Strings media = {path("9.mts"), path("10.mts"), path("a.wav"), path("b.MOV"),
                         path("card/CLIP/ü.mts")};
  const cli::Inputs inputs = collected({path("."), path("missing.mp4")});
  Strings expected = media;
  expected.push_back(path("missing.mp4"));  // the run says what is wrong with it
  EXPECT_EQ(inputs.entries, expected);
  EXPECT_TRUE(inputs.notices.empty());
  EXPECT_EQ(collected({path("empty")}).notices.size(), 1u);
}

TEST_F(Inputs, DevicesStandBetweenTheirMarkers) {
  const std::string begin(run::kBeginMarker), end(run::kEndMarker);
  const cli::Inputs inputs = collected({path("a.wav")}, {{path("card")}, {path("x")}});
  EXPECT_EQ(inputs.entries,
            (Strings{begin, path("card/CLIP/ü.mts"), end, begin, path("x"), end, path("a.wav")}));
}

TEST_F(Inputs, EveryFolderBecomesADevice) {
  fs::create_directories(folder_ / "zoom");
  for (const char* name :
       {"zoom/ZOOM0001_Tr1.WAV", "zoom/ZOOM0001_Tr2.WAV", "zoom/ZOOM0002_Tr1.WAV"})
    (void)report::writeWhole(folder_ / name, "x");
  cli::Arguments arguments;
  arguments.devicesIn = {path(".")};
  const cli::Inputs inputs = cli::collectInputs(arguments);
  ASSERT_EQ(inputs.project.devices.size(), 2u);
  EXPECT_EQ(inputs.project.devices[0].name, "card");
  EXPECT_EQ(inputs.project.devices[0].kind, project::DeviceKind::camera);
  EXPECT_EQ(inputs.project.devices[1].name, "zoom");
  ASSERT_EQ(inputs.project.devices[1].recordings.size(), 2u);  // tracks of a take are one
  EXPECT_EQ(inputs.project.devices[1].recordings[0].files.size(), 2u);
  EXPECT_EQ(inputs.entries, (Strings{path("9.mts"), path("10.mts"), path("a.wav"), path("b.MOV")}));
}

TEST_F(Inputs, AProjectIsGoneOnWith) {
  project::Project made;
  project::Device device;
  device.recordings.resize(2);
  for (project::Recording& recording : device.recordings) recording.files.resize(1);
  device.recordings[0].files[0].path = path("a.wav");
  device.recordings[1].files[0].path = path("gone.wav");
  made = project::addDevices(made, {device});
  ASSERT_TRUE(project::saveProject(made, path("w.kestrel")).ok());
  cli::Arguments arguments;
  arguments.entries = {path("w.kestrel"), path("b.MOV")};
  arguments.only = {"a.wav"};
  const cli::Inputs inputs = cli::collectInputs(arguments);
  EXPECT_EQ(inputs.error, "");
  EXPECT_EQ(inputs.project, made);
  EXPECT_EQ(inputs.entries, Strings{path("b.MOV")});
  EXPECT_EQ(inputs.again, std::vector{made.devices[0].recordings[0].id});
  EXPECT_EQ(inputs.notices.size(), 1u);  // one file is missing
  arguments.only = {"c.wav"};
  EXPECT_NE(cli::collectInputs(arguments).error.find("--only"), std::string::npos);
  EXPECT_TRUE(collected({path("none.kestrel")}).cannotOpen);
}

TEST_F(Inputs, ListsHoldMarkersAndNamesFromTheirFolder) {
  const std::string begin(run::kBeginMarker), end(run::kEndMarker);
  const std::u8string root = fs::temp_directory_path().root_path().generic_u8string();
  const std::string whole = std::string(root.begin(), root.end()) + "abs/c.mov";
  (void)report::writeWhole(folder_ / "list.txt",
                           "\xef\xbb\xbf" + begin + "\r\na.wav\r\n\r\n" + end + "\n" + whole);
  const cli::Inputs inputs = collected({}, {}, {path("list.txt")});
  EXPECT_EQ(inputs.error, "");
  EXPECT_EQ(inputs.entries, (Strings{begin, path("a.wav"), end, whole}));
  EXPECT_NE(collected({}, {}, {path("none")}).error.find("--list"), std::string::npos);
  EXPECT_NE(collected({}, {}, {path("card")}).error.find("--list"), std::string::npos);
}

}  // namespace
