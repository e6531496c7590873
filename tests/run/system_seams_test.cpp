#include <gtest/gtest.h>

#include "media.h"
#include "run/clock.h"
#include "run/desktop.h"
#include "run/kept_sounds.h"

namespace fs = std::filesystem;

TEST(KeptSounds, SoundsOfOneNameAreAllKeptAndTheLastTakesTheName) {
  const Folder folder;
  run::TemporaryFolder spare;
  report::NoConsole console;
  std::vector<run::Entry> entries(4);
  entries[0].listed = "test-first-element";
  fs::create_directories(folder.path() / "debugfiles");
  for (int i = 1; i < 4; ++i) {
    fs::create_directories(folder.path() / std::to_string(i));
    entries[i].listed = folder.file(std::to_string(i) + "/clip.mov");
    entries[i].converted =
        folder.write(std::to_string(i) + "/clip.wav", "sound" + std::to_string(i));
  }
  const std::string target = folder.file("debugfiles/");
  const auto places = run::keepSounds(entries, target, spare, console);
  EXPECT_EQ(places[0], "");
  EXPECT_EQ(places[3], target + "clip.mov_temporary_file_to_be_deleted.wav");
  for (int i = 1; i < 4; ++i) {
    EXPECT_EQ(readWhole(report::fromUtf8(places[i])), "sound" + std::to_string(i));
    EXPECT_FALSE(fs::exists(report::fromUtf8(entries[i].converted)));
  }
  entries[1].converted = folder.write("1/clip.wav", "again");
  const auto elsewhere =
      run::keepSounds({entries[0], entries[1]}, "/proc/no/folder/", spare, console);
  EXPECT_EQ(readWhole(report::fromUtf8(elsewhere[1])), "again");
}

TEST(Desktop, ANameNeverBecomesACommand) {
  for (const char* line : {"explorer \"C:\\Users\\a & b (1)\\SYNCED\"", "C:/Users/ann/SYNCED"})
    EXPECT_TRUE(run::isOneCommand(line)) << line;
  for (const char* line : {"C:/Users/a&calc/SYNCED", "C:/Users/calc b/SYNCED", "C:/calc;/SYNCED",
                           "open \"C:/%PATH%\"", "open \"a\" & calc"})
    EXPECT_FALSE(run::isOneCommand(line)) << line;
}

TEST(Clock, SixDigitsWithColons) {
  const std::string now = run::SystemClock().timeOfDay();
  ASSERT_EQ(now.size(), 8u);
  EXPECT_EQ(now[2], ':');
  EXPECT_EQ(now[5], ':');
}
