// Outside programs and libraries as this system has them; elsewhere other ones are there.
#ifndef _WIN32
#include <gtest/gtest.h>

#include <thread>

#include "media.h"
#include "run/desktop.h"
#include "run/media_info_library.h"
#include "run/media_probe.h"

namespace fs = std::filesystem;

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

TEST(Processes, ACancelledRunEndsTheProgram) {
  std::atomic<bool> cancelled = false;
  run::ProcessResult result;
  std::jthread program([&] {
    result = run::SystemProcesses().run({{}, {"sleep", "600"}}, cancelled);
  });
  cancelled = true;
  program.join();
  EXPECT_NE(result.exitCode, 0);
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

#endif
