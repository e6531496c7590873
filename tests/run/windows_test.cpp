// What only Windows does: files that a program keeps for itself, programs that are missing.
#ifdef _WIN32
#include <gtest/gtest.h>
#include <windows.h>

// windows.h comes first; the shell has a type called Folder, and so have our tests
#define Folder ShellFolder
#include <shlguid.h>
#include <shobjidl.h>
#undef Folder

#include <algorithm>
#include <thread>

#include "media.h"
#include "report/disk.h"
#include "report/profile.h"
#include "run/desktop.h"
#include "run/diagnosis.h"
#include "run/media_info_library.h"
#include "tests/awkward_names.h"

namespace {

namespace fs = std::filesystem;

run::Entry unconverted(const std::string& file) {
  run::Entry entry;
  entry.listed = file;
  entry.converted = file + "_temporary_file_to_be_deleted.wav";
  entry.source = "IGNORE" + entry.converted;
  return entry;
}

/// The folder that a shortcut leads to.
std::string targetOf(const fs::path& shortcut) {
  CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  IShellLinkW* link = nullptr;
  IPersistFile* file = nullptr;
  wchar_t target[MAX_PATH] = L"";
  CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, IID_IShellLinkW,
                   reinterpret_cast<void**>(&link));
  link->QueryInterface(IID_IPersistFile, reinterpret_cast<void**>(&file));
  file->Load(shortcut.c_str(), STGM_READ);
  link->GetPath(target, MAX_PATH, nullptr, 0);
  file->Release();
  link->Release();
  CoUninitialize();
  return report::nativeUtf8(target);
}

/// Starts the test program `holder`, which starts another one that goes on and on.
class Holder {
 public:
  Holder() {
    std::wstring line = report::fromUtf8(commandLine(file_)).wstring();
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                   &process_);
  }
  ~Holder() {
    kill();
    CloseHandle(process_.hProcess);
    CloseHandle(process_.hThread);
  }
  static std::string commandLine(const std::string& file) {
    return "\"" + report::wholePath(HOLDER) + "\" hold \"" + file + '"';
  }
  std::string file() const { return file_; }
  void kill() { TerminateProcess(process_.hProcess, 1); }

 private:
  const Folder folder_;
  const std::string file_ = folder_.file("number");
  PROCESS_INFORMATION process_{};
};

/// The process that went on, once it has written its number to `file`.
HANDLE sleeper(const std::string& file) {
  DWORD number = 0;
  while (!(std::ifstream(report::fromUtf8(file)) >> number)) Sleep(5);
  return OpenProcess(SYNCHRONIZE, FALSE, number);
}

constexpr DWORD kLongEnough = 60000;  // milliseconds, where the failure is that nothing ends

}  // namespace

TEST(Windows, WhatTheProgramHasStartedEndsWithItHoweverItEnds) {
  Holder holder;
  HANDLE started = sleeper(holder.file());
  ASSERT_TRUE(started);
  EXPECT_EQ(WaitForSingleObject(started, 0), DWORD(WAIT_TIMEOUT));
  holder.kill();
  EXPECT_EQ(WaitForSingleObject(started, kLongEnough), DWORD(WAIT_OBJECT_0));
  CloseHandle(started);
}

TEST(Windows, ACancelledProgramEndsWithAllThatItHasStarted) {
  const Folder folder;
  const std::string file = folder.file("number");
  std::atomic<bool> cancelled = false;
  std::jthread waiting([&] {
    (void)run::SystemProcesses().run({Holder::commandLine(file), {report::wholePath(HOLDER)}},
                                     cancelled);
  });
  HANDLE started = sleeper(file);
  cancelled = true;
  EXPECT_EQ(WaitForSingleObject(started, kLongEnough), DWORD(WAIT_OBJECT_0));
  CloseHandle(started);
}

TEST(Windows, AShortcutLeadsToItsFolderAndTakesThePlaceOfAnOlderOne) {
  const Folder desktop;
  const std::string target = report::toUtf8(desktop.path()) + "/results " + kAwkwardName + "x";
  for (const std::string& folder : {target + "/old/SYNCED", target + "/SYNCED"}) {
    fs::create_directories(report::fromUtf8(folder));
    EXPECT_TRUE(run::SystemDesktop().putShortcut(folder, report::toUtf8(desktop.path())));
  }
  EXPECT_EQ(targetOf(desktop.path() / "SYNCED.lnk"), report::nativeSlashes(target + "/SYNCED"));
  EXPECT_FALSE(run::SystemDesktop().putShortcut(target, "Z:/no/such/folder"));
}

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
