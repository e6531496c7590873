#include "cli/align.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>

#include "cli/demo/render.h"
#include "report/files.h"
#include "tests/fresh_path.h"

namespace {

namespace fs = std::filesystem;
using namespace cli::demo;

/// Two recordings of half a minute, the second of them 4.5 s later, in a folder with a hard name.
class Align : public testing::Test {
 protected:
  void SetUp() override {
    fs::create_directories(media_ / "empty");
    const Sound performed = performance(40, 5);
    const Device near{0.5, 0.001, 0.1, 0.2, 0, ""}, far{0.4, 0.002, 0.2, 0.4, 0, ""};
    run::SystemProcesses processes;
    const Sound first = recorded(performed, near, {"", 0, 0.5, 36}, 1);
    const Sound second = recorded(performed, far, {"", 1, 5.0, 30}, 2);
    ASSERT_TRUE(writeMedia(first, "", media_ / "a.wav", processes).ok());
    ASSERT_TRUE(writeMedia(second, "", media_ / "b.wav", processes).ok());
    start_ = fs::current_path();
    fs::current_path(folder_);  // two tables of a run go there
    arguments_.profile = report::toUtf8(folder_);
    arguments_.json = report::toUtf8(folder_ / "result.json");
    arguments_.quiet = true;
  }
  void TearDown() override {
    fs::current_path(start_);
    fs::remove_all(folder_);
  }

  int align(const fs::path& entry) {
    arguments_.entries = {report::toUtf8(entry)};
    testing::internal::CaptureStdout();
    const int status = cli::align(arguments_);
    output_ = testing::internal::GetCapturedStdout();
    return status;
  }

  const fs::path folder_ = freshPath("kestrel align test");
  const fs::path media_ = folder_ / report::fromUtf8("Zoë & \"co\" 100%");
  fs::path start_;
  cli::Arguments arguments_;
  std::string output_;
};

TEST_F(Align, AFolderIsSynchronisedAndLeftAsItWas) {
  EXPECT_EQ(align(media_), cli::kSynchronised);
  EXPECT_EQ(std::distance(fs::directory_iterator(media_), {}), 3);
  std::ifstream file(folder_ / "result.json");
  const auto result = nlohmann::json::parse(file);
  const auto& members = result["groups"][0]["members"];
  ASSERT_EQ(members.size(), 2u);
  EXPECT_NEAR(members[1]["offset_seconds"].get<double>(), 4.5, 0.06);
  for (const auto& written : result["outputs"]) {
    const fs::path path = report::fromUtf8(written.get<std::string>());
    EXPECT_TRUE(path.is_absolute() && fs::exists(path)) << path;
  }
  EXPECT_NE(output_.find("b.wav"), std::string::npos);
  for (const char* text : {"READ2SYNC.txt", "PROBLEMS.TXT", "tempresults.txt"})
    EXPECT_GT(fs::file_size(folder_ / "Desktop/SYNCED" / text), 0u) << text;
}

TEST_F(Align, TheExitStatusTellsWhatCameOfIt) {
  EXPECT_EQ(align(media_ / "a.wav"), cli::kNothingMatched);
  EXPECT_NE(output_.find("a.wav"), std::string::npos);
  EXPECT_EQ(align(media_ / "missing.wav"), cli::kFailed);
  EXPECT_NE(output_.find("missing.wav"), std::string::npos);
  EXPECT_EQ(align(media_ / "empty"), cli::kWrongUsage);
}

}  // namespace
