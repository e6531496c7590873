#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>

#include "export/documents.h"
#include "tests/export/sample.h"

namespace {

namespace fs = std::filesystem;

fs::path pathOf(const std::string& text) { return std::u8string(text.begin(), text.end()); }

std::string contents(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

struct Sample {
  const char* folder;
  double fps;
  int width, height;
  timeline::XmemlForm form;
  std::vector<std::string> formats;
};

/// The folder holds exactly what is written today. With KESTREL_UPDATE_GOLDEN set, it is written
/// anew, to be looked through before it is committed.
class Golden : public testing::TestWithParam<Sample> {};

TEST_P(Golden, EveryDocumentIsAsItWas) {
  const Sample run = GetParam();
  const fs::path folder = fs::path(TEST_DATA) / "golden" / run.folder;
  report::NoConsole console;
  const timeline::DocumentOptions options{"9:05:00", run.formats, run.form};
  std::set<std::string> names;
  for (const auto& [name, text] :
       documents(sample::run(run.fps, run.width, run.height), options, console).files) {
    const fs::path file = folder / pathOf(name);
    if (std::getenv("KESTREL_UPDATE_GOLDEN")) {
      fs::create_directories(file.parent_path());
      std::ofstream(file, std::ios::binary) << text;
    }
    EXPECT_TRUE(contents(file) == text) << file << " differs";
    names.insert(name);
  }
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    const std::string name = fs::relative(entry.path(), folder).generic_string();
    EXPECT_TRUE(entry.is_directory() || names.contains(name)) << name << " is not written any more";
  }
}

using timeline::XmemlForm;
INSTANTIATE_TEST_SUITE_P(
    Runs, Golden,
    testing::Values(
        Sample{"25", 25, 1920, 1080, XmemlForm::complete, {}},
        Sample{"29.97",
               29.97,
               1280,
               720,
               XmemlForm::complete,
               {"fcp", "premiere", "fcpx", "fcpx110", "vegas"}},
        Sample{"29.97-compact", 29.97, 1280, 720, XmemlForm::compact, {"fcp", "premiere"}},
        Sample{"59.94", 59.94, 1000, 500, XmemlForm::complete, {"fcp", "fcpx", "otio", "rpp"}}));

}  // namespace
