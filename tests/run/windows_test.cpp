// What only Windows does: files that a program keeps for itself, programs that are missing.
#ifdef _WIN32
#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>

#include "media.h"
#include "run/diagnosis.h"
#include "run/media_info_library.h"
#include "tests/awkward_names.h"

namespace {

run::Entry unconverted(const std::string& file) {
  run::Entry entry;
  entry.listed = file;
  entry.converted = file + "_temporary_file_to_be_deleted.wav";
  entry.source = "IGNORE" + entry.converted;
  return entry;
}

}  // namespace

TEST(Windows, ASourceThatAnotherProgramHoldsOpenIsToldFromAForbiddenOne) {
  const Folder folder;
  const std::string file = folder.write(std::string(kAwkwardName) + ".mov", "sound");
  run::MediaInfoLibrary missing("no such.dll");
  run::MediaInfoProbe probe(missing);
  HANDLE held = CreateFileW(report::fromUtf8(file).c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING,
                            FILE_ATTRIBUTE_NORMAL, nullptr);
  ASSERT_NE(held, INVALID_HANDLE_VALUE);
  EXPECT_EQ(run::diagnose(unconverted(file), probe).reason, "another program holds it open");
  CloseHandle(held);
  EXPECT_NE(run::diagnose(unconverted(file), probe).reason, "another program holds it open");
}

TEST(Windows, AMissingProgramIsNamedAndTheSystemsAnswerToldInWords) {
  const std::atomic<bool> never = false;
  const std::string file = "C:\\no folder/ffmpeg.exe";
  const run::ProcessResult result = run::SystemProcesses().run({"\"" + file + "\"", {file}}, never);
  const std::string begin = "cannot start " + file + ": ";
  ASSERT_TRUE(result.started.error.starts_with(begin)) << result.started.error;
  const std::string answer = result.started.error.substr(begin.size());
  EXPECT_TRUE(std::ranges::all_of(answer, [](char c) { return c != '\n' && c != '\r'; })) << answer;
  EXPECT_NE(answer.find("found"), std::string::npos) << answer;
}

#endif
