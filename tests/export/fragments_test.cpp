#include <gtest/gtest.h>

#include <algorithm>
#include <string_view>

#include "export/vegas.h"
#include "export/xmeml_fragments.h"

namespace {

using namespace timeline;

TEST(XmemlFragments, NumbersAreFramesWithoutSign) {
  EXPECT_EQ(
      xmemlVideoTrack(7, -1.5f, 10, 25),
      R"(<track><clipitem><start>37.5</start><end>212.5</end><file id="7"/></clipitem></track>)");
  const std::string sound = xmemlAudioTracks(12, 2, 40000, 29.97f);
  EXPECT_TRUE(sound.starts_with(
      R"(<track><clipitem><start>59.94</start><end>1198860</end><file id="12"/><sourcetrack>)"
      R"(<mediatype>audio</mediatype><trackindex>1</trackindex></sourcetrack></clipitem></track>)"
      R"(<track><clipitem><start>59.94</start>)"))
      << sound;
  EXPECT_TRUE(sound.ends_with("<trackindex>2</trackindex></sourcetrack></clipitem></track>"));
}

TEST(XmemlFragments, OnlyPremiereGetsTheAttributeBlock) {
  EXPECT_EQ(xmemlSequence("sequence-1", "A", 29.97f, "V", "S", 0),
            "<sequence id=\"sequence-1\"><name>A</name><duration>20000</duration><rate><timebase>"
            "29.97</timebase></rate><media><video>V</video><audio>S</audio></media></sequence>");
  const std::string premiere = xmemlSequence("s\"", "A", 25, "", "", 1);
  EXPECT_TRUE(premiere.starts_with("<sequence id=\"s\"  TL.SQAudioVisibleBase=\"0\" "));
  EXPECT_NE(premiere.find(R"("EncoderPresets\SequencePreview\9678af98-a7b7-4bdb-b477-7ac9c8df4a4e)"
                          R"(\Microsoft AVI.epr" MZ.)"),
            std::string::npos);
  EXPECT_NE(premiere.find(R"( MZ.WorkInPoint="0"><name>A</name>)"), std::string::npos);
}

TEST(XmemlFragments, ClipsAndSoundFiles) {
  EXPECT_EQ(xmemlClip("n", 25, xmemlFile(3, "url"), "M", 4),
            "<clip><rate><timebase>25</timebase></rate><name>n</name><duration>100</duration>"
            "<file id=\"3\"><pathurl>url</pathurl></file>M</clip>");
  EXPECT_EQ(xmemlWavMedia(3, "url"),
            "<media><audio><track><clipitem><file id=\"3\"><pathurl>url</pathurl></file>"
            "</clipitem></track></audio>");
  EXPECT_EQ(xmemlProject("N", "C"),
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?><!DOCTYPE xmeml><xmeml version=\"4\">"
            "<project><name>N</name><children>C</children></project></xmeml>");
}

TEST(XmemlFragments, PathUrlEscapesWhatItAlwaysHas) {
  EXPECT_EQ(xmemlPathUrl(R"(C:\My Clips\a&b.mov)"), "file://localhost/C%3A/My%20Clips/a%26b.mov");
  EXPECT_EQ(xmemlPathUrl(R"(!#$%'()*+,";)"), R"(file://localhost/%21%23%24%25%27%28%29%2A%2B,";)");
}

TEST(VegasEventRows, ExtensionDecidesWhichRowsAClipGets) {
  struct Case {
    const char* path;
    int rows;
    std::string_view begin;
  };
  const Case cases[] = {{"take1.WAV", 1,
                         "2;2;1500;10000; 1.000000; FALSE; FALSE; 0; TRUE; FALSE; "
                         "AUDIO; \"take1.WAV\"; 0; 0.0000; "},
                        {"a.mov", 2, "1;1;1500;10000; "},
                        {"take1.Wav", 2, "1;1;1500;10000; "}};  // mixed case counts as video
  for (const auto& [path, count, begin] : cases) {
    SCOPED_TRACE(path);
    report::NoConsole console;
    const std::string rows = vegasEventRows(path, 10.0f, 0, 1.5f, 1, 2, console);
    EXPECT_EQ(std::ranges::count(rows, '\n'), count);
    EXPECT_TRUE(rows.starts_with(begin)) << rows;
  }
}

TEST(VegasEventRows, RowsGoToStandardOutputToo) {
  testing::internal::CaptureStdout();
  const std::string rows = vegasEventRows("a.mov", 10.0f, 0, 1.5f, 1, 2);
  EXPECT_EQ(testing::internal::GetCapturedStdout(), rows + "\n");
}

}  // namespace
