#include "report/text.h"

#include <gtest/gtest.h>

#include <clocale>

#include "report/table.h"
#include "tests/report/shown_path.h"

namespace {

TEST(ClockText, RoundsToTheMillisecondAndCarries) {
  const std::pair<double, const char*> cases[] = {{0, "0:00:00.000"},
                                                  {59.9996, "0:01:00.000"},
                                                  {3599.9994, "0:59:59.999"},
                                                  {360000.5, "100:00:00.500"},
                                                  {-1.5, "-0:00:01.500"},
                                                  {-0.0001, "0:00:00.000"},
                                                  {1e300, "-"}};
  for (const auto& [seconds, text] : cases) EXPECT_EQ(report::clockText(seconds), text);
}

TEST(DecimalText, IgnoresTheLocaleAndNeedsNoExponent) {
  std::setlocale(LC_ALL, "de_DE.UTF-8");
  EXPECT_EQ(report::decimalText(1234567.125, 2), "1234567.12");
  EXPECT_EQ(report::decimalText(1e-9, 3), "0.000");
  std::setlocale(LC_ALL, "C");
}

TEST(Text, IsSafeToShowAndMeasuredInColumns) {
  EXPECT_EQ(report::printable("a\x1b[31m\n\xff\xc3"
                              "b\xc3\xa9"),
            "a?[31m???b\xc3\xa9");
  EXPECT_EQ(report::displayWidth("e\u0301é"), 2);
  EXPECT_EQ(report::displayWidth("日本 take"), 9);
  EXPECT_EQ(report::elidedMiddle("日本語の長い名前.mov", 12), "日本....mov");
  EXPECT_EQ(report::elidedMiddle("short", 5), "short");
}

TEST(DistinctNames, TakeAsManyFoldersAsTellThemApart) {
  const std::vector<std::string> paths = {"/a/cam1/C01.MP4", "/a/cam2/C01.MP4", "/a/cam2/C02.MP4",
                                          "/b/cam2/C01.MP4", "/a/cam2/C02.MP4"};
  EXPECT_EQ(report::distinctNames(paths),
            (std::vector<std::string>{shownPath("cam1/C01.MP4"), shownPath("a/cam2/C01.MP4"),
                                      "C02.MP4", shownPath("b/cam2/C01.MP4"), "C02.MP4"}));
  EXPECT_EQ(report::distinctNames({"", "C:\\cam1\\x.mov", "x"}),
            (std::vector<std::string>{"", "x.mov", "x"}));
}

TEST(TableText, AlignsByColumnsNotBytes) {
  const std::vector<report::Row> rows = {
      {"Name", "n", "empty"}, {"é", "10", ""}, {"本本本", "2", ""}};
  EXPECT_EQ(report::tableText(rows, "lrl", 1), " Name     n\n é       10\n 本本本   2\n");
}

}  // namespace
