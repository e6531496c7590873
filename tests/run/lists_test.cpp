#include <gtest/gtest.h>

#include "media.h"
#include "run/conversion_command.h"
#include "run/device_groups.h"
#include "run/entries.h"
#include "run/file_list.h"
#include "run/tables.h"
#include "run/wide_text.h"

using run::kBeginMarker;
using run::kEndMarker;
using Strings = std::vector<std::string>;

TEST(DeviceGroups, MarkersEncloseTheFilesOfOneDevice) {
  const std::string begin(kBeginMarker), end(kEndMarker);
  ASSERT_EQ(begin.size(), 70u);
  ASSERT_EQ(end.size(), 68u);
  struct Case {
    Strings list;
    run::DeviceGroups groups;
  };
  const Case cases[] = {
      {{"a", "b"}, {}},
      {{begin, "a", "b", end}, {{1, 2}}},
      {{begin, "a", end, "b"}, {}},
      {{begin, "a", "b"}, {{1, 2}}},
      {{begin, "a", begin, "b", end}, {{1, 2, 3}}},
      {{begin, "a", "b", end, "c", begin, "d", "e", end}, {{1, 2}, {6, 7}}},
      {{end, "a", begin, begin, "b", "c"}, {{3, 4, 5}, {4, 5}}}};  // open groups overlap
  for (const auto& [list, groups] : cases)
    EXPECT_EQ(run::deviceGroups(run::convertedNames(list)), groups) << list.front();
  EXPECT_EQ(run::devicesOf({{3, 4, 5}, {4, 5}}, 6), (std::vector{-1, -1, -1, 0, 0, 0}));
}

TEST(FileList, AFileListedTwiceIsUsedOnceAndStaysWithItsDevice) {
  const Folder folder;
  const std::string a = folder.write("a.wav", "a"), b = folder.write("b.wav", "b");
  const std::string again = folder.file("./a.wav"), begin(kBeginMarker), end(kEndMarker);
  Strings repeated;
  EXPECT_EQ(run::withoutRepeats({a, b, a, "gone"}, repeated), (Strings{a, b, "gone"}));
  EXPECT_EQ(run::withoutRepeats({a, begin, again, b, end}, repeated),
            (Strings{begin, again, b, end}));
  EXPECT_EQ(repeated, (Strings{a, a}));
}

TEST(FileList, OnlyPicturesAndKnownSoundTypesAreKept) {
  struct Case {
    const char *source, *frameRate;
    bool ignored;
  };
  const Case cases[] = {{"a.WAV", "", false},
                        {"a.m4a", "", false},
                        {"a.aif", "", false},
                        {"a.aiff", "", false},
                        {"a.Wav", "", false},
                        {"a.FLAC", "", false},
                        {"a.wav.txt", "", true},
                        {"a.flac", "25.000", false},
                        {"a.mp4", "9", true},
                        {"", "", true},
                        {"IGNOREa.mp4_temporary_file_to_be_deleted.wav", "", true},
                        {"IGNOREa", "25.000", true}};
  for (const auto& [source, frameRate, ignored] : cases) {
    run::Entry entry;
    entry.source = source;
    entry.frameRate = frameRate;
    EXPECT_EQ(run::isIgnored(entry), ignored) << source << " " << frameRate;
  }
}

TEST(FileList, DroppedFilesGoAndTheDummyKeepsTheFirstIndex) {
  auto entries = run::makeEntries(run::withDummy(Strings{"a.wav", "b.mov"}));
  entries[1].source = run::kToDrop;
  run::dropMarked(entries);
  ASSERT_EQ(entries.size(), 2u);
  EXPECT_EQ(entries[0].listed, run::kDummyEntry);
  EXPECT_EQ(entries[1].converted, "b.mov_temporary_file_to_be_deleted.wav");
  EXPECT_EQ(entries[1].frameRate, "999");
}

TEST(ConversionCommand, WindowsLineByteForByte) {
  const run::Command command = run::conversionCommand("C:\\work/", "C:/my clips/a.MOV",
                                                      run::convertedName("C:/my clips/a.MOV"));
  EXPECT_EQ(command.windowsLine,
            "\"C:\\work/ffmpeg.exe\"   -i \"C:/my clips/a.MOV\" -vn -acodec pcm_s16le -ar 8000 -ac "
            "1  -f wav -y  \"C:/my clips/a.MOV_temporary_file_to_be_deleted.wav\"");
  EXPECT_EQ(run::macConversionCommand("/a b.mov"),
            "./Kestrel.app/ffmpeg   -i \"/a b.mov\" -vn  -ar 8000 -ac 1 -f wav -y "
            "\"/a b.mov_temporary_file_to_be_deleted.wav\"");
}

TEST(Tables, MirroredPairsGoAndTheEarlierStays) {
  const std::vector<float> records = {1, 2, 0.5,     3, 4,    5,  //
                                      2, 1, -0.5,    3, 4,    5,  //
                                      7, 7, 1,       1, 1,    1,  //
                                      3, 1, -12.34f, 8, 0.1f, 1e6f};
  const std::vector<float> clean = run::cleanTable(records);
  EXPECT_EQ(run::tableText(clean, run::kCleanFields), "1,2,0.5,3,4\n3,1,-12.34,8,0.1\n");
  EXPECT_TRUE(run::tableText(records, run::kRecordFields).ends_with("0.1,1000000\n"));
}

TEST(WideText, NeedsNoLocaleAndSurvivesBrokenBytes) {
  EXPECT_EQ(run::widened("a\xC3\xBC\xE5\xAD\x97"), L"a\u00FC\u5B57");
  EXPECT_EQ(run::widened("\xFFz\xC3"), L"\uFFFDz\uFFFD");
  EXPECT_EQ(run::narrowed(L"25\u00FC0"), "25_0");
}
