#include "export/text.h"

#include <gtest/gtest.h>

#include "export/frame_rate.h"
#include "export/url.h"

namespace {

using namespace timeline;

TEST(NumberText, SixDigitsThenWholeNumbersNeverAnExponent) {
  const std::pair<double, const char*> cases[] = {{37, "37"},
                                                  {37.5, "37.5"},
                                                  {29.97f, "29.97"},
                                                  {0, "0"},
                                                  {1.0 / 3, "0.333333"},
                                                  {999999, "999999"},
                                                  {999999.6, "1000000"},
                                                  {1234567.4, "1234567"},
                                                  {0.00001, "0.00001"},
                                                  {-12.25, "-12.25"},
                                                  {6473526, "6473526"}};
  for (const auto& [value, text] : cases) EXPECT_EQ(numberText(value), text);
}

TEST(CleanText, KeepsEveryCharacterThatXmlAllowsAndNothingElse) {
  const std::string fine = "a\xC3\xA9\xD7\x90\xE2\x82\xAC\xF0\x9F\x8E\xAC\tz\xEF\xBF\xBD";
  EXPECT_EQ(cleanText(fine), fine);
  const std::string r = "\xEF\xBF\xBD";
  const std::pair<std::string, std::string> cases[] = {
      {"a\xFFz", "a" + r + "z"},            // no lead byte
      {"a\xC3", "a" + r},                   // cut off
      {"\xC0\xAF", r + r},                  // overlong
      {"\xED\xA0\x80", r + r + r},          // surrogate
      {"\xEF\xBF\xBF", r},                  // U+FFFF: one character, forbidden
      {"\xF4\x90\x80\x80", r + r + r + r},  // beyond Unicode
      {std::string("a\0\x1B", 3), "a" + r + r}};
  for (const auto& [text, clean] : cases) EXPECT_EQ(cleanText(text), clean);
  EXPECT_EQ(escaped("<\"a\"&\n>'%"), "&lt;&quot;a&quot;&amp;&#10;&gt;'%");
}

TEST(FileUrl, NamesFilesOfEverySystem) {
  struct Case {
    const char *path, *editor, *standard;
  };
  const Case cases[] = {
      {"/a b/\xC3\xA9\xFF?#.mov", "file://localhost/a%20b/%C3%A9%FF%3F%23.mov",
       "file:///a%20b/%C3%A9%FF%3F%23.mov"},
      {"C:\\a&b\\c.mov", "file://localhost/C%3A/a%26b/c.mov", "file:///C:/a%26b/c.mov"},
      {"\\\\nas\\x\\c.wav", "file://localhost//nas/x/c.wav", "file://nas/x/c.wav"},
      {"//nas/x/c \\d.wav", "file://localhost//nas/x/c%20/d.wav", "file://nas/x/c%20/d.wav"},
      {"/a\\b.mov", "file://localhost/a%5Cb.mov", "file:///a%5Cb.mov"}};
  for (const auto& [path, editor, standard] : cases) {
    EXPECT_EQ(fileUrl(path, UrlStyle::editor), editor);
    EXPECT_EQ(fileUrl(path, UrlStyle::standard), standard);
  }
  EXPECT_EQ(fileName("C:\\a/b\\c.MOV"), "c.MOV");
  EXPECT_EQ(fileName("/a/b\\c.MOV"), "b\\c.MOV");
  EXPECT_EQ(extension("/a.b/c.MOV"), "mov");
  EXPECT_EQ(extension("/a.b/c"), "");
}

TEST(ExactRate, KnowsTheUsualRatesFromWhatIsReported) {
  const std::pair<double, FrameRate> cases[] = {{23.976, {24000, 1001}},
                                                {23.98, {24000, 1001}},
                                                {24, {24, 1}},
                                                {29.97, {30000, 1001}},
                                                {30, {30, 1}},
                                                {59.94f, {60000, 1001}},
                                                {119.88, {120000, 1001}},
                                                {60.001, {60, 1}},
                                                {14.5, {14500, 1000}},
                                                {0, {25, 1}}};
  for (const auto& [fps, rate] : cases) EXPECT_EQ(exactRate(fps), rate) << fps;
  EXPECT_EQ(wholeUnits(9.33f, {1000, 1}), 9330);     // 9.3299999 in single precision
  EXPECT_EQ(wholeUnits(10.01, {30000, 1001}), 300);  // 299.99999999999994 as doubles go
}

}  // namespace
