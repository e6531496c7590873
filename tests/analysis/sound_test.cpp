#include "analysis/sound.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <memory>

#include "analysis/sample_source.h"
#include "tests/analysis/sounds.h"
#include "tests/fresh_path.h"

namespace {

std::string temporary(const char* name) { return sounds::utf8(freshPath(name)); }

TEST(Sound, PiecesAreCutFromTheWholeAndSilentOutside) {
  const std::string path = temporary("kestrel piece.wav");
  sounds::writeWav(path, sounds::noise(1000, 1));
  auto source = std::make_unique<analysis::SamplesInFile>(path);
  ASSERT_FALSE(source->empty());
  ASSERT_EQ(source->length(), 1000);
  std::vector<float> whole(1000);
  source->read(0, whole);
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
      expected.push_back(i >= 0 && i < 1000 ? whole[i] : 0);
    }
    EXPECT_EQ(analysis::readPiece(path, first, count), expected);
    std::vector<float> piece(static_cast<std::size_t>(count), -1);
    source->read(first, piece);
    EXPECT_EQ(piece, expected);
  }
  source.reset();  // an open file cannot be removed everywhere
  std::filesystem::remove(path);
}

TEST(Sound, BadFilesAreEmpty) {
  const std::string path = temporary("kestrel not a sound.wav");
  std::ofstream(path) << "this is text";
  for (const std::string& bad : {path, temporary("kestrel missing.wav"), std::string()}) {
    EXPECT_TRUE(analysis::SamplesInFile(bad).empty());
    EXPECT_EQ(analysis::soundLength(bad), 0);
    EXPECT_EQ(analysis::readPiece(bad, -1, 3), std::vector<float>(3));
  }
  std::filesystem::remove(path);
}

}  // namespace
