#include "export/documents.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <locale>
#include <map>

#include "tests/export/dtd.h"
#include "tests/export/reader.h"
#include "tests/export/sample.h"

namespace {

using namespace timeline;

std::map<std::string, std::string> written(const Project& project, DocumentOptions options = {}) {
  options.time = "12:34:56";
  report::NoConsole console;
  std::map<std::string, std::string> result;
  for (const auto& [name, text] : documents(project, options, console).files)
    EXPECT_TRUE(result.emplace(name, text).second) << name;
  return result;
}

/// Clips that all start at once, each of its own device unless `device` says otherwise.
Project manyClips(int count, double seconds, int device) {
  Project project;
  project.groups = {{"Group 1", {}}};
  for (int i = 0; i < count; ++i) {
    project.media.push_back(
        sample::camera("/clips/" + std::string(300, 'x') + std::to_string(i) + ".mov", seconds, 25,
                       1920, 1080, 2, device));
    project.groups[0].clips.push_back({i, 0.01 * i, 0.9});
  }
  return project;
}

TEST(Documents, AllAreNamedByTheTimeOfDay) {
  std::vector<std::string> names;
  for (const auto& [name, text] : written(sample::run(25, 1920, 1080))) names.push_back(name);
  EXPECT_EQ(names,
            (std::vector<std::string>{
                "SYNCED_1--12-34-56--.mlt", "SYNCED_1--12-34-56--.otio", "SYNCED_2--12-34-56--.mlt",
                "SYNCED_2--12-34-56--.otio", "SYNCED_FCP_X--12-34-56--.FCPXML",
                "SYNCED_FCP_X_1.10--12-34-56--.FCPXML", "SYNCED_fcp--12-34-56--.XML",
                "SYNCED_premiereProCS6+ONLY--12-34-56--.XML", "UNSYNCED--12-34-56--.mlt",
                "UNSYNCED--12-34-56--.otio", "UNSYNCED_FCP_X--12-34-56--.FCPXML",
                "UNSYNCED_FCP_X_1.10--12-34-56--.FCPXML", "UNSYNCED_fcp--12-34-56--.XML",
                "UNSYNCED_premierePro--12-34-56--.XML", "VEGAS_SEQUENCES/1.edl",
                "VEGAS_SEQUENCES/2.edl"}));
  EXPECT_EQ(written({}, {"", {"otio", "fcpx"}}).size(), 2u);
}

TEST(Documents, FollowNoLocale) {
  struct Commas : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
  };
  const auto usual = written(manyClips(3, 5000.25, -1));
  const std::locale before = std::locale::global(std::locale(std::locale(), new Commas));
  const auto elsewhere = written(manyClips(3, 5000.25, -1));
  std::locale::global(before);
  EXPECT_TRUE(usual == elsewhere);
}

TEST(Documents, UnknownFormatsAndChangedNamesAreTold) {
  EXPECT_TRUE(checkFormats(std::vector<std::string>{"fcp", "vegas"}).ok());
  EXPECT_NE(checkFormats(std::vector<std::string>{"fcp", "avid"}).error.find("\"avid\""),
            std::string::npos);
  Project project = sample::run(25, 1920, 1080);
  EXPECT_TRUE(changedNames(project).empty());
  project.media[5].path = "/shoot/\xFF\nphone.mp4";
  ASSERT_EQ(changedNames(project).size(), 1u);
  EXPECT_NE(changedNames(project)[0].find("\xEF\xBF\xBD phone.mp4 "), std::string::npos);
}

TEST(Documents, UnsyncedClipsStandInARowOnOneTrack) {
  Project project = sample::run(29.97, 1920, 1080);
  project.unsynced = {7, 6, 5, 1, 0};
  const auto text = written(project)["UNSYNCED_premierePro--12-34-56--.XML"];
  std::int64_t end = 0;
  std::vector<std::string> pictures;
  for (const reader::Placed& clip : reader::xmeml(text, true))
    if (clip.channel == 0) {
      EXPECT_TRUE(clip.track == 1 && clip.start >= end) << clip.path;
      end = clip.end;
      pictures.push_back(clip.path);
    }
  EXPECT_EQ(pictures,
            (std::vector<std::string>{"/shoot/cam 1/a&b.mov", "/shoot/cam 1/second <take>.mov",
                                      "/shoot/phone.mp4", "/shoot/silent.mov"}));
}

TEST(Documents, OverlappingClipsOfOneDeviceGetFurtherTracks) {
  auto documents = written(manyClips(3, 0.5, 1));
  const auto clips = reader::xmeml(documents["SYNCED_fcp--12-34-56--.XML"], true);
  std::map<std::pair<bool, int>, int> clipsOfTrack;
  for (const reader::Placed& clip : clips) ++clipsOfTrack[{clip.channel == 0, clip.track}];
  EXPECT_EQ(clipsOfTrack.size(), 9u);
  for (const auto& [track, count] : clipsOfTrack) EXPECT_EQ(count, 1);
  EXPECT_EQ(reader::fcpxml(documents["SYNCED_FCP_X--12-34-56--.FCPXML"], {25, 1})[2].track, 3);
}

TEST(Documents, FiveHundredClipsAndNoneAtAll) {
  const Project large = manyClips(500, 108000.123, -1);
  EXPECT_EQ(reader::xmeml(written(large)["SYNCED_fcp--12-34-56--.XML"], true).size(), 1500u);
  for (auto& [name, text] : written({})) {
    if (name.ends_with("FCPXML")) {
      EXPECT_TRUE(reader::fcpxml(text, {25, 1}).empty()) << name;
    } else if (name.ends_with("XML")) {
      EXPECT_TRUE(reader::xmeml(text, true).empty()) << name;
    }
  }
}

/// Where the document type definitions are at hand (KESTREL_DTD_DIR) and xmllint is installed.
TEST(Documents, FcpxmlIsValid) {
  if (!dtdFolder()) GTEST_SKIP() << "KESTREL_DTD_DIR is not set";
  Project odd = sample::run(59.94, 1000, 500);
  odd.media[0].path = "/a/\xFF<\"&'>\x01.mov";
  odd.media[2].facts.picture->rate = {29, 2};
  for (const Project& project : {Project{}, odd, manyClips(500, 0.04, -1), manyClips(3, 9, 1)})
    for (const auto& [name, text] : written(project, {"", {"fcpx", "fcpx110"}})) {
      const bool modern = name.find("1.10") != std::string::npos;
      EXPECT_TRUE(isValidFcpxml(text, modern)) << name << "\n" << text.substr(0, 2000);
    }
}

}  // namespace
