// Outside programs and libraries as this system has them.
#include <gtest/gtest.h>

#include <csignal>
#include <thread>

#include "media.h"
#include "run/desktop.h"
#include "run/media_info_library.h"
#include "run/media_probe.h"
#include "tests/process_state.h"

namespace fs = std::filesystem;

#ifndef _WIN32  // where other programs are there to be started: see windows_test.cpp
namespace {

run::ProcessResult start(std::vector<std::string> arguments) {
  const std::atomic<bool> never = false;
  return run::SystemProcesses().run({{}, std::move(arguments)}, never);
}

}  // namespace

TEST(Processes, ArgumentsStayApartAndTheOutcomeComesBack) {
  const Folder folder;
  const std::string name = folder.file("q\" $(x) 'y' %d \\ \n&.txt");
  EXPECT_EQ(start({"cp", folder.write("a", "text"), name}).exitCode, 0);
  EXPECT_EQ(readWhole(report::fromUtf8(name)), "text");
  const run::ProcessResult failed = start({"ls", folder.file("absent")});
  EXPECT_NE(failed.exitCode, 0);
  EXPECT_NE(failed.messages.find("absent"), std::string::npos);
  EXPECT_FALSE(start({"no-such-program-here"}).started.ok());
}

TEST(Processes, NoInputIsWaitedForAndTheEndOfLongMessagesIsKept) {
  const run::ProcessResult result =
      start({"sh", "-c", "cat; yes 0123456789 | head -n 100000 >&2; echo last >&2"});
  EXPECT_TRUE(result.messages.ends_with("last\n"));
  EXPECT_LT(result.messages.size(), 10000u);
}

TEST(Processes, WhatIsWrittenOverIsForgotten) {
  const run::ProcessResult result =
      start({"sh", "-c",
             "echo reason >&2; for i in $(seq 2000); do printf 'size= %d kB\\r' $i >&2; done"});
  EXPECT_EQ(result.messages, "reason\nsize= 2000 kB");
}

TEST(Processes, ASignalIsToldFromAnExit) {
  const run::ProcessResult killed = start({"sh", "-c", "kill -9 $$"});
  EXPECT_EQ(killed.signal, SIGKILL);
  EXPECT_FALSE(killed.ok());
  const run::ProcessResult failed = start({"sh", "-c", "exit 3"});
  EXPECT_EQ(failed.exitCode, 3);
  EXPECT_EQ(failed.signal, 0);
  EXPECT_FALSE(failed.ok());
}

// Whatever program lies in the folder in which one happens to be, or in one of PATH that counts
// from there.
TEST(Processes, NothingIsStartedFromTheWorkingDirectory) {
  const Folder folder;
  const std::string planted = folder.write("planted", "#!/bin/sh\ntouch ran\n");
  fs::permissions(planted, fs::perms::owner_all);
  const std::string path = std::getenv("PATH");
  const fs::path before = fs::current_path();
  setenv("PATH", (".::" + path).c_str(), 1);
  fs::current_path(folder.path());
  EXPECT_FALSE(start({"planted"}).started.ok());
  EXPECT_FALSE(fs::exists("ran"));
  setenv("PATH", (path + ":" + report::toUtf8(folder.path())).c_str(), 1);
  EXPECT_TRUE(start({"planted"}).ok());  // named on purpose
  fs::current_path(before);
  setenv("PATH", path.c_str(), 1);
}

// A script in the place of a program, and what it has started.
TEST(Processes, ACancelledRunEndsTheProgramWithAllThatItStarted) {
  const Folder folder;
  std::atomic<bool> cancelled = false;
  run::ProcessResult result;
  std::jthread program([&] {
    const std::string script =
        "cd '" + report::toUtf8(folder.path()) + "'; sleep 600 & echo $! > new; mv new child; wait";
    result = run::SystemProcesses().run({{}, {"sh", "-c", script}}, cancelled);
  });
  while (!fs::exists(folder.path() / "child")) std::this_thread::yield();
  cancelled = true;
  program.join();
  EXPECT_EQ(result.signal, SIGKILL);
  const int child = std::stoi(readWhole(folder.path() / "child"));
  while (isRunning(child)) std::this_thread::yield();  // killed, it ends soon; else never
}

TEST(Processes, OneThatDoesNothingForTooLongIsEnded) {
  const std::atomic<bool> never = false;
  run::SystemProcesses impatient(std::chrono::milliseconds(10));
  EXPECT_TRUE(impatient.run({{}, {"sleep", "600"}}, never).stalled);
  const run::ProcessResult busy = impatient.run(
      {{}, {"sh", "-c", "for i in $(seq 15); do cat /proc/self/stat; sleep 0.1; done"}}, never);
  EXPECT_TRUE(busy.ok()) << busy.exitCode;
}

TEST(Desktop, AFolderIsShownWithoutWaitingForTheProgramThatShowsIt) {
  const Folder folder;
  const std::string script = folder.write(
      "xdg-open", "#!/bin/sh\nwhile [ ! -e \"$1/go\" ]; do sleep 0.02; done\ntouch \"$1/shown\"\n");
  fs::permissions(script, fs::perms::owner_all);
  const std::string path = std::getenv("PATH");
  setenv("PATH", (report::toUtf8(folder.path()) + ":" + path).c_str(), 1);
  setenv("DISPLAY", ":none", 0);
  run::SystemDesktop().show(report::toUtf8(folder.path()));
  setenv("PATH", path.c_str(), 1);
  EXPECT_FALSE(fs::exists(folder.path() / "shown"));
  folder.write("go", "");
  for (int tries = 0; tries < 500 && !fs::exists(folder.path() / "shown"); ++tries)
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  EXPECT_TRUE(fs::exists(folder.path() / "shown"));
}

#endif

TEST(MediaProbe, TellsPicturesFromSoundWhateverTheNameAndLocale) {
  const Folder folder;
  const std::string clip = folder.file("\xE5\xAD\x97 \xC3\xBC & 100% 'x' 001.mp4");
  ASSERT_TRUE(ffmpeg({"-f", "lavfi", "-i", "testsrc=r=30000/1001:s=320x240:d=2", "-f", "lavfi",
                      "-i", "sine=r=48000:d=2", "-c:v", "mpeg4", "-c:a", "aac", "-ac", "2", clip}));
  const std::string sound = folder.write("s.wav", wavText(liveSound(1.5, 1), 8000));
  run::MediaInfoProbe probe;
  ASSERT_TRUE(probe.available());
  const run::MediaProperties picture = probe.query(clip), wav = probe.query(sound);
  EXPECT_EQ(picture.frameRate, "29.970");
  EXPECT_EQ(wav.frameRate, "");
  EXPECT_EQ(wav.firstSound().lengthSeconds, 1.5);
  EXPECT_FALSE(probe.query(folder.file("absent.mov")).opened);
}

TEST(MediaProbe, WithoutTheLibraryEveryAnswerIsEmpty) {
  run::MediaInfoLibrary missing("libno-such-library.so.0"), other("libm.so.6");
  EXPECT_EQ(missing.load(), -1);
  EXPECT_EQ(other.load(), -1);  // loads, but lacks the entry points
  EXPECT_EQ(run::MediaInfoLibrary::shared().load(), 1);
  EXPECT_EQ(run::MediaInfoLibrary::shared().load(), 1);
  run::MediaInfoProbe probe(missing);
  EXPECT_FALSE(probe.available());
  EXPECT_EQ(run::frameRateText(probe, "/a.mov"), "");
  run::MediaInfoLibrary::shared().unload();
  run::MediaInfoLibrary::shared().unload();
}
