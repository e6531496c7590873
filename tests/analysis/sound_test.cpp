#include "analysis/sound.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "tests/analysis/sounds.h"
#include "tests/fresh_path.h"

namespace {

std::string temporary(const char* name) { return sounds::utf8(freshPath(name)); }

TEST(Sound, PiecesAreCutFromTheWholeAndSilentOutside) {
  const std::string path = temporary("kestrel piece.wav");
  sounds::writeWav(path, sounds::noise(1000, 1));
  const analysis::Sound whole = analysis::readSound(path);
  ASSERT_TRUE(whole.opened);
  EXPECT_EQ(whole.frames, 1000);
  EXPECT_EQ(analysis::soundLength(path), 1000);
  struct Case {
    std::int64_t first, count;
  };
  for (const auto [first, count] : {Case{0, 1000},
                                    {300, 5},
                                    {-40, 100},
                                    {990, 50},
                                    {-5, 1010},
                                    {2000, 10},
                                    {-30, 20},
                                    {5, 0}}) {
    SCOPED_TRACE(testing::Message() << first << " + " << count);
    std::vector<float> expected;
    for (std::int64_t i = first; i < first + count; ++i) {
      expected.push_back(i >= 0 && i < 1000 ? whole.samples[i] : 0);
    }
    EXPECT_EQ(analysis::readPiece(path, first, count), expected);
  }
  std::filesystem::remove(path);
}

TEST(Sound, BadFilesAreEmpty) {
  const std::string path = temporary("kestrel not a sound.wav");
  std::ofstream(path) << "this is text";
  for (const std::string& bad : {path, temporary("kestrel missing.wav"), std::string()}) {
    EXPECT_TRUE(analysis::readSound(bad).empty());
    EXPECT_EQ(analysis::soundLength(bad), 0);
    EXPECT_EQ(analysis::readPiece(bad, -1, 3), std::vector<float>(3));
  }
  std::filesystem::remove(path);
}

}  // namespace
