#include "report/run_report.h"

#include <algorithm>

#include "report/diagnostics.h"
#include "report/report_texts.h"
#include "tests/report/profile_fixture.h"

namespace {

using std::string;

TEST(ProblemsText, NoMatchStandsAloneUnlessFilesAreProblematic) {
  const string message = report::problemsText({"nema"});
  EXPECT_EQ(message.size(), 437u);
  EXPECT_EQ(std::ranges::count(message, '\n'), 2);
  EXPECT_TRUE(message.starts_with("There were NO MATCHES. Try with Slow setting! Please"));
  EXPECT_TRUE(message.ends_with("with music, please deselect the option! "));
  EXPECT_EQ(
      report::problemsText({"nema", "a b.mp4"}),
      message + " \n please check this file for corruption/reencode in different format ->a b.mp4");
}

TEST(ProblemsText, SuccessNamesTheFolderThenTheFiles) {
  EXPECT_EQ(report::problemsText({report::kSuccess, "P"}),
            string(report::kSuccess) +
                "\nThe XML files are placed on Your DESKTOP!Look for SYNCED folder!"
                " \n please check this file for corruption/reencode in different format ->P");
}

TEST(ProblemsText, APartialResultListsEverythingAfterTheSupportMessage) {
  const string support = report::kSupportMessage;
  EXPECT_EQ(report::problemsText({"first", "x.mov"}), support + "first  \n x.mov  \n ");
  EXPECT_EQ(std::ranges::count(support, '\n'), 27);
  EXPECT_EQ(std::ranges::count(support, '*'), 3 * 77);
  EXPECT_TRUE(support.ends_with("* \n " + string(77, '*')));
  EXPECT_NE(support.find("in music videos where \n this"), string::npos);
}

class Lines final : public report::Console {
 public:
  void line(std::string_view text) override { all.emplace_back(text); }
  std::vector<string> all;
};

using ReportRun = ProfileTest;

TEST_F(ReportRun, WritesTheFileWholeAndRunsTheThreeCommands) {
  Lines console;
  std::vector<string> commands;
  (void)report::reportRun({"first", "long name of an earlier result"}, console, {});
  (void)report::reportRun({"nema"}, console, [&](const string& one) { commands.push_back(one); });
  EXPECT_EQ(content(report::kProblemsFile), report::kNoMatchMessage);
  const string folder =
      report::toBackslashPath(report::toUtf8(profile_) + string(report::kSyncedFolder));
  EXPECT_EQ(commands,
            (std::vector{"explorer \"" + folder + '"', "explorer  \"" + folder + "\\PROBLEMS.TXT\"",
                         "explorer  \"" + folder + "\\READ2SYNC.TXT\""}));
  const std::u8string profile = profile_.generic_u8string();
  EXPECT_EQ(console.all.back(), string(profile.begin(), profile.end()));
  EXPECT_EQ(std::ranges::count(console.all, "sega sme vo nema"), 1);
}

}  // namespace
