#include "cli/wildcard.h"

#include <gtest/gtest.h>

#include "tests/run/media.h"

using Strings = std::vector<std::string>;

TEST(Wildcard, APatternFitsWholeNamesWhateverTheirCase) {
  for (const char* pattern : {"*", "*.MP4", "c*", "c???.mp4", "*0*.*", "C001.mp4", "**4"})
    EXPECT_TRUE(cli::fits("C001.MP4", pattern)) << pattern;
  for (const char* pattern : {"", "*.MOV", "C001", "???.mp4", "*.MP4?", "001*"})
    EXPECT_FALSE(cli::fits("C001.MP4", pattern)) << pattern;
}

TEST(Wildcard, StandsForTheNamesThatFitAndElseForItself) {
  const Folder folder;
  for (const char* name : {"b ü.MP4", "a.mp4", "c.mov", ".hidden.mp4"}) folder.write(name, "x");
  const std::string here = folder.file("");
  EXPECT_EQ(cli::expanded(here + "*.mp4"), (Strings{here + "a.mp4", here + "b ü.MP4"}));
  for (const std::string& word : {here + "*.wav", here + "a.mp4", here, std::string("--json=*")})
    EXPECT_EQ(cli::expanded(word), Strings{word});
}
