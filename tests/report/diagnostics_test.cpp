#include "report/diagnostics.h"

#include <thread>

#include "tests/report/profile_fixture.h"

namespace {

using Diagnostics = ProfileTest;

TEST_F(Diagnostics, LinesAreAppendedInOrderToTheirOwnFile) {
  report::appendLogLine("one");
  report::appendLogLine("two");
  report::appendTempResultsLine("pair");
  report::appendRead2SyncLine("page");
  EXPECT_EQ(content(report::kLogFile), "one\ntwo\n");
  EXPECT_EQ(content("/Desktop/SYNCED/tempresults.txt"), "pair\n");
  EXPECT_EQ(content("/Desktop/SYNCED/READ2SYNC.txt"), "page\n");
}

TEST_F(Diagnostics, AllLinesOfThePageEndAsOnThisSystem) {
  ASSERT_TRUE(report::replaceRead2SyncFile("one\ntwo\n").ok());
  report::appendRead2SyncLine("three\nfour");
  const std::string bytes = content(report::kRead2SyncFile, std::ios::binary);
#ifdef _WIN32
  EXPECT_EQ(bytes, "one\r\ntwo\r\nthree\r\nfour\r\n");
#else
  EXPECT_EQ(bytes, "one\ntwo\nthree\nfour\n");
#endif
}

TEST_F(Diagnostics, RemovingLeavesTheOtherFilesAndAllowsAMissingOne) {
  report::appendRead2SyncLine("page");
  report::appendTempResultsLine("pair");
  report::removeRead2SyncFile();
  report::removeRead2SyncFile();
  EXPECT_FALSE(std::filesystem::exists(profile_ / "Desktop/SYNCED/READ2SYNC.txt"));
  report::removeTempResultsFile();
  EXPECT_FALSE(std::filesystem::exists(profile_ / "Desktop/SYNCED/tempresults.txt"));
}

TEST_F(Diagnostics, AnUnwritableFolderIsSkippedWithoutAMessage) {
  std::filesystem::remove_all(profile_);
  report::appendLogLine("lost");
  EXPECT_FALSE(std::filesystem::exists(profile_));
}

TEST_F(Diagnostics, LinesOfSeveralThreadsStayWhole) {
  const std::string line(20000, 'x');  // longer than a stream's buffer
  {
    std::jthread other([&] {
      for (int i = 0; i < 50; ++i) report::appendLogLine(line);
    });
    for (int i = 0; i < 50; ++i) report::appendLogLine(line);
  }
  std::string expected;
  for (int i = 0; i < 100; ++i) expected += line + '\n';
  EXPECT_TRUE(content(report::kLogFile) == expected);
}

TEST(BackslashPath, OnlySlashesChange) {
  EXPECT_EQ(report::toBackslashPath("C:\\Users\\ann" + std::string(report::kLogFile)),
            "C:\\Users\\ann\\Desktop\\SYNCED\\debugfiles\\log_file.txt");
  EXPECT_EQ(report::toBackslashPath("plain name: ä|b"), "plain name: ä|b");
}

}  // namespace
