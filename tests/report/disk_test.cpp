#include "report/disk.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <utility>

#include "report/files.h"
#include "report/long_path.h"
#include "tests/awkward_names.h"
#include "tests/fresh_path.h"

namespace fs = std::filesystem;

namespace {

/// A folder below the temporary one, whose path is longer than Windows takes as it stands.
std::string longFolder() {
  std::string folder = report::toUtf8(fs::temp_directory_path()) + "/kestrel-disk-test";
  for (int i = 0; i < 3; ++i) folder += '/' + std::string(100, 'l') + kAwkwardName + "x";
  return report::wholePath(folder);
}

fs::file_type kindOf(const std::string& path) {
  std::error_code error;
  const fs::file_type kind = report::kindOf(report::fromUtf8(path), error);
  EXPECT_FALSE(error);
  return kind;
}

std::string textOf(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace

TEST(Disk, FilesOfLongPathsAreMadeFoundToldApartAndRemoved) {
  const std::string folder = longFolder(), a = folder + "/a.wav", b = folder + "/b.wav";
  EXPECT_FALSE(report::makeFolders(report::fromUtf8(folder)));
  EXPECT_FALSE(report::makeFolders(report::fromUtf8(folder)));
  for (const std::string& file : {a, b})
    ASSERT_TRUE(report::writeWhole(report::fromUtf8(file), "12345").ok());
  EXPECT_EQ(kindOf(folder), fs::file_type::directory);
  EXPECT_EQ(kindOf(a), fs::file_type::regular);
  EXPECT_EQ(kindOf(folder + "/absent/a.wav"), fs::file_type::not_found);
  EXPECT_EQ(report::sizeOf(report::fromUtf8(a)), 5u);
  EXPECT_TRUE(report::areOneFile(report::fromUtf8(a), report::fromUtf8(folder + "/./a.wav")));
  EXPECT_FALSE(report::areOneFile(report::fromUtf8(a), report::fromUtf8(b)));
  EXPECT_TRUE(report::makeFolders(report::fromUtf8(a + "/below a file")));

  report::makeFolders(report::fromUtf8(folder + "/sub"));
  std::vector<std::string> names;
  for (const report::FolderItem& item : report::itemsOf(report::fromUtf8(folder)))
    names.push_back(item.name + (item.isFolder ? "/" : item.isFile ? "" : "?"));
  std::ranges::sort(names);
  EXPECT_EQ(names, (std::vector<std::string>{"a.wav", "b.wav", "sub/"}));
  report::removeFile(report::fromUtf8(a));
  EXPECT_EQ(kindOf(a), fs::file_type::not_found);
  report::removeFolder(report::fromUtf8(folder));
  EXPECT_EQ(kindOf(folder), fs::file_type::not_found);
}

TEST(Disk, ACopyOrAMovedFileTakesThePlaceOfWhatWasThere) {
  const fs::path folder = freshPath("copies");
  report::makeFolders(folder);
  const fs::path a = folder / "a.wav", b = folder / "b.wav", none = folder / "none.wav";
  for (const auto& [file, text] : {std::pair{a, "short"}, std::pair{b, "much longer"}})
    ASSERT_TRUE(report::writeWhole(file, text).ok());
  EXPECT_FALSE(report::copyFile(a, b));
  EXPECT_EQ(textOf(a), "short");
  EXPECT_EQ(textOf(b), "short");
  EXPECT_TRUE(report::copyFile(b, b));
  EXPECT_TRUE(report::copyFile(none, b));
  EXPECT_TRUE(report::moveFile(none, b));
  EXPECT_TRUE(report::moveFile(a, folder / "no folder" / "a.wav"));
  EXPECT_EQ(textOf(a) + textOf(b), "shortshort");

  const fs::path memory = "/dev/shm";  // another drive where there is one
  const fs::path other = fs::is_directory(memory) ? memory / folder.filename() : folder;
  report::makeFolders(other);
  for (const fs::path& to : {b, other / "b.wav"}) {
    ASSERT_TRUE(report::writeWhole(a, "moved").ok() && report::writeWhole(to, "before").ok());
    EXPECT_FALSE(report::moveFile(a, to));
    EXPECT_EQ(textOf(to), "moved");
    EXPECT_EQ(report::sizeOf(a), 0u);
  }
  EXPECT_EQ(report::itemsOf(other).size(), 1u);
  report::removeFolder(other);
  report::removeFolder(folder);
}

TEST(Disk, ThePathOfAFileReadsAsItWasGivenHoweverLong) {
  const std::string folder = longFolder();
  EXPECT_EQ(report::toUtf8(report::fromUtf8(folder)), folder);
  EXPECT_EQ(report::wholePath(folder + "/x/../a b.wav"), folder + "/a b.wav");
  EXPECT_EQ(report::wholePath("a.wav"), report::toUtf8(fs::current_path()) + "/a.wav");
}

TEST(LongPath, TheExtendedFormNamesTheSameFile) {
  const std::pair<const char*, const char*> cases[] = {
      {R"(C:\a b\c.mov)", R"(\\?\C:\a b\c.mov)"}, {R"(\\nas\x\c.wav)", R"(\\?\UNC\nas\x\c.wav)"}};
  for (const auto& [plain, extended] : cases) {
    EXPECT_EQ(report::extendedPath(plain), extended);
    EXPECT_EQ(report::extendedPath(extended), extended);
    EXPECT_EQ(report::plainPath(extended), plain);
    EXPECT_EQ(report::plainPath(plain), plain);
  }
  EXPECT_EQ(report::plainPath("//?/UNC/nas/x"), "//nas/x");
}
