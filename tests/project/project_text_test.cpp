#include "project/project_text.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "project/path_text.h"
#include "tests/project/sample.h"

namespace project {
namespace {

using Json = nlohmann::ordered_json;

const auto kNothing = [](const std::string&) { return false; };

ReadProject readAgain(const std::string& text, const std::string& folder = "/media/card") {
  return readProjectText(text, folder, kNothing);
}

/// Replaces what stands at `pointer` in the file of a full project; what reading it says.
std::string problemWith(const char* pointer, const Json& value) {
  Json json = Json::parse(projectText(fullProject(), "/media/card"));
  json[Json::json_pointer(pointer)] = value;
  const ReadProject read = readAgain(json.dump());
  EXPECT_FALSE(read.project.has_value()) << pointer;
  return read.error;
}

TEST(ProjectText, EveryFieldComesBack) {
  const Project project = fullProject();
  const ReadProject read = readAgain(projectText(project, "/media/card"));
  ASSERT_TRUE(read.project.has_value()) << read.error;
  EXPECT_EQ(*read.project, project);
  EXPECT_EQ(projectText(*read.project, "/media/card"), projectText(project, "/media/card"));
  // an empty one too, and each field in it counts: a sample that leaves one out would not show it
  EXPECT_EQ(readAgain(projectText({}, "/")).project, Project{});
  const Json json = Json::parse(projectText(project, "/")),
             none = Json::parse(projectText({}, "/"));
  for (const auto& [name, value] : none["settings"].items())
    EXPECT_NE(json["settings"][name], value) << name;
}

TEST(ProjectText, FieldsOfNewerVersionsAreKept) {
  Json json = Json::parse(projectText(fullProject(), "/media/card"));
  const char* places[] = {"/new",
                          "/settings/new",
                          "/devices/0/new",
                          "/devices/0/recordings/0/new",
                          "/devices/0/recordings/0/files/0/new",
                          "/devices/0/recordings/0/files/0/path/new",
                          "/devices/0/recordings/0/files/0/facts/new",
                          "/devices/0/recordings/0/files/0/facts/picture/rate/new",
                          "/devices/0/recordings/0/files/0/facts/sounds/1/new",
                          "/devices/1/recordings/0/left_out/new",
                          "/groups/0/clips/0/new",
                          "/groups/1/new",
                          "/evidence/0/new",
                          "/written/new"};
  int number = 0;
  for (const char* place : places) json[Json::json_pointer(place)] = {{"a", ++number}};
  const ReadProject read = readAgain(json.dump());
  ASSERT_TRUE(read.project.has_value()) << read.error;
  EXPECT_EQ(nlohmann::json::parse(projectText(*read.project, "/media/card")),
            nlohmann::json::parse(json.dump()));
}

TEST(ProjectText, WhatIsDamagedIsNamed) {
  const std::string whole = projectText(fullProject(), "/");
  EXPECT_EQ(readAgain(whole.substr(0, 100)).error, "it is damaged at byte 101");
  EXPECT_EQ(readAgain("{}").error, "it is not a project of Kestrel Aligner");
  EXPECT_EQ(readAgain("[1]").error, "it is not a project of Kestrel Aligner");
  EXPECT_NE(readAgain(std::string(100'000, '[')).error.find("without end"), std::string::npos);
  EXPECT_NE(problemWith("/kestrel_project", kForm + 1).find("newer version"), std::string::npos);
  struct Case {
    const char* pointer;
    Json value;
    const char* problem;
  };
  const Case cases[] = {
      {"/devices", 1, "devices is no list"},
      {"/devices/1", "x", "devices[1] is no object"},
      {"/devices/0/id", 2.5, "devices[0].id is no whole number"},
      {"/devices/0/id", 1e300, "devices[0].id is no whole number"},
      {"/devices/0/id", 4'000'000'000, "devices[0].id is no whole number"},
      {"/devices/0/id", 2, "two things, or none, may be called 2"},
      {"/devices/0/name", 1, "devices[0].name is no text"},
      {"/devices/0/kind", "drone", "devices[0].kind is none of the words"},
      {"/devices/0/recordings/0/files", Json::array(), "no file is named for recording 3"},
      {"/devices/0/recordings/0/files/0/path", 1, "files[0].path is no object"},
      {"/devices/0/recordings/0/files/0/bytes", -1, "files[0].bytes is no whole number"},
      {"/devices/0/recordings/0/length_seconds", -1, "the length of recording 3 is below 0"},
      {"/groups/0/clips/0/recording", 9, "recording 9, which is not there"},
      {"/groups/0/clips/0/recording", 4, "two clips stand for recording 4"},
      {"/groups/0/clips/0/start_seconds", "0", "groups[0].clips[0].start_seconds is no number"},
      {"/groups/0/clips/0/start_seconds", 1e12, "the place of recording 3 is no time"},
      {"/groups/0/clips/0/pinned", 1, "groups[0].clips[0].pinned is neither true nor false"},
      {"/evidence/0/second", 8, "a comparison names recording 8"},
      {"/settings/frame_size", 5, "settings.frame_size is no object"}};
  for (const auto& [pointer, value, problem] : cases)
    EXPECT_NE(problemWith(pointer, value).find(problem), std::string::npos)
        << pointer << ": " << problemWith(pointer, value);
}

TEST(ProjectText, FilesAreFoundFromTheProjectWhereItLiesNow) {
  Project project = fullProject();
  const std::string text = projectText(project, "/media/card/Edit");
  const auto onNewDrive = [](const std::string& path) { return path.starts_with("/mnt/"); };
  const ReadProject read = readProjectText(text, "/mnt/drive/Edit", onNewDrive);
  EXPECT_EQ(read.project->devices[0].recordings[0].files[0].path, "/mnt/drive/Cam 1/C0001.MP4");
  EXPECT_EQ(readAgain(text, "/mnt/drive/Edit").project->devices, project.devices)
      << "not there: where it was";
}

TEST(PathText, PathsAreToldFromTheFolderAndBack) {
  struct Case {
    const char *path, *folder, *relative;
  };
  const Case cases[] = {{"/a/b/c.wav", "/a/b", "c.wav"},
                        {"/a/b/c.wav", "/a/b/", "c.wav"},
                        {"/a/b/c.wav", "/a/x/y", "../../b/c.wav"},
                        {"/a.wav", "/", "a.wav"},
                        {"C:/v/c.wav", "C:/p", "../v/c.wav"},
                        {"//s/share/v/c.wav", "//s/share/p", "../v/c.wav"}};
  for (const auto& [path, folder, relative] : cases) {
    EXPECT_EQ(relativePath(path, folder), relative);
    EXPECT_EQ(pathFrom(folder, relative), path);
  }
  EXPECT_FALSE(relativePath("D:/v/c.wav", "C:/p").has_value());
  EXPECT_FALSE(relativePath("//s/other/c.wav", "//s/share/p").has_value());
  EXPECT_FALSE(relativePath("", "/p").has_value());
  std::string bytes = "%41 100%";
  for (int byte = 1; byte < 256; ++byte) bytes += static_cast<char>(byte);
  EXPECT_EQ(unescapedPath(escapedPath(bytes)), bytes);
}

}  // namespace
}  // namespace project
