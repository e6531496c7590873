// What goes wrong around a run: ffmpeg, the drives, other runs, sudden ends. After each the next
// run works, and nothing of the user's is touched.
#ifndef _WIN32

#include <sys/mount.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

#include "event.h"
#include "report/folder_lock.h"
#include "report/run_report.h"
#include "run/entries.h"

namespace fs = std::filesystem;
using Strings = std::vector<std::string>;

namespace {

/// Starts a script in the place of ffmpeg: $in is the source, $out the converted sound.
class StandIn final : public run::ProcessRunner {
 public:
  explicit StandIn(std::string script)
      : script_(std::move(script)),
        processes_(std::chrono::milliseconds(script_.starts_with("sleep") ? 10 : 120000)) {}
  run::ProcessResult run(const run::Command& command, const std::atomic<bool>& cancelled) override {
    if (command.arguments[2].ends_with(run::kDummyEntry)) return {};
    const std::string script =
        "out=$1; in=$2; real() { ffmpeg -v error -nostdin -i \"$in\" -t $1 -ar 8000 -ac 1 -f wav "
        "-y \"$out\"; }; " +
        script_;
    return processes_.run(
        {{}, {"sh", "-c", script, "sh", command.arguments.back(), command.arguments[2]}},
        cancelled);
  }

 private:
  const std::string script_;
  run::SystemProcesses processes_;
};

/// Takes sources for what is converted from them, each for itself.
class Copies final : public run::ProcessRunner {
 public:
  run::ProcessResult run(const run::Command& command, const std::atomic<bool>&) override {
    if (std::ranges::count(command.arguments, "-i") > 1) return {{}, 1, {}};
    fs::copy_file(report::fromUtf8(command.arguments[2]),
                  report::fromUtf8(command.arguments.back()), fs::copy_options::overwrite_existing);
    return {};
  }
};

/// Two recordings, the second from 6 s of the first on.
Strings twoOf(const Event& event) {
  const auto sound = liveSound(30, 51);
  return {event.sound("a.wav", cut(sound, 0, 24)), event.sound("b.wav", cut(sound, 6, 30))};
}

void expectWorks(Event& event, const Strings& list) {
  EXPECT_EQ(event.run(list), Strings{report::kSuccess});
  ASSERT_EQ(event.outcome.groups.size(), 1u);
  EXPECT_NEAR(event.outcome.groups[0].members[1].offsetSeconds, 6, 0.01);
  EXPECT_TRUE(event.outcome.failures.empty());
}

std::string pageOf(const Event& event) { return readWhole(event.results() / "READ2SYNC.txt"); }

/// Ends this process at the n-th thing that a run tells of.
class SuddenEnd final : public run::Progress {
 public:
  explicit SuddenEnd(int steps) : left_(steps) {}
  void moveprogressslot(int) override {}
  void moveprogressignal(int) override {}
  void stage(run::Stage, std::string_view, int, int) override {
    if (--left_ == 0) std::raise(SIGKILL);
  }

 private:
  std::atomic<int> left_;
};

}  // namespace

TEST(Faults, WhatFfmpegDidNotConvertToTheEndIsLeftOut) {
  Event event;
  const Strings list = twoOf(event);
  const auto before = event.mediaFiles();
  const std::pair<const char*, const char*> cases[] = {
      {"real 20; echo 'Conversion failed!' >&2; exit 1", "ffmpeg failed at its sound (Conversion"},
      {"real 20; kill -9 $$", "ended by the system"},
      {"real 20; kill -SEGV $$", "ffmpeg crashed"},
      {"ulimit -v 20000; real 30; exit $?", "not enough memory for ffmpeg"},
      {"echo 'ffmpeg: error while loading shared libraries: libx.so: no such file' >&2; exit 127",
       "does not start (libx.so: no such file)"},
      {"real 5", "most of its sound is missing"},
      {"head -c 9000 /dev/urandom > \"$out\"", "most of its sound is missing"},
      {"real 20; echo 'av_interleaved_write_frame(): No space left on device' >&2", "no room"},
      {"sleep 600", "came to a halt"}};
  for (const auto& [script, reason] : cases) {
    StandIn standIn(script);
    event.processes = &standIn;
    EXPECT_EQ(event.run(list).front(), report::kNothingMatched) << script;
    for (const std::string& path : list)
      EXPECT_NE(event.reasonFor(path).find(reason), std::string::npos)
          << script << ": " << event.reasonFor(path);
    EXPECT_TRUE(event.mediaFiles() == before) << script;
  }
  event.processes = &event.systemProcesses;
  expectWorks(event, list);
}

TEST(Faults, ASourceDriveWithoutRoomIsNoHindrance) {
  Event event;
  const Strings list = twoOf(event);
  StandIn standIn(
      "case $out in */media/*) real 2; echo 'No space left on device' >&2; exit 1;; esac; "
      "real 60");
  event.processes = &standIn;
  const auto before = event.mediaFiles();
  expectWorks(event, list);
  EXPECT_TRUE(event.mediaFiles() == before);
}

TEST(Faults, AFullSourceDriveIsKnownWhereFfmpegDoesNotNameIt) {
  Event event;
  const fs::path media = fs::path(event.sound("a.wav", liveSound(1, 51))).parent_path();
  if (mount("tmpfs", media.c_str(), "tmpfs", 0, "size=2m") != 0)
    GTEST_SKIP() << "needs the right to mount";
  const Strings list = twoOf(event);
  StandIn standIn(
      "case $out in */media/*) head -c 3000000 /dev/zero >\"$out\"; echo 'Invalid argument' >&2; "
      "exit 1;; esac; real 60");
  event.processes = &standIn;
  const auto before = event.mediaFiles();
  expectWorks(event, list);
  EXPECT_TRUE(event.mediaFiles() == before);
  umount2(media.c_str(), MNT_DETACH);
}

TEST(Faults, ASecondRunIsRefusedAndTouchesNothing) {
  Event event;
  const Strings list = twoOf(event);
  expectWorks(event, list);
  const std::string page = pageOf(event);
  {
    const report::FolderLock first(event.results());
    ASSERT_TRUE(first.isMine());
    EXPECT_NE(event.run({list[0]}).front().find("Another run"), std::string::npos);
    EXPECT_TRUE(event.outcome.refused);
    EXPECT_EQ(event.outcome.failures.size(), 1u);
  }
  EXPECT_EQ(pageOf(event), page);
  expectWorks(event, list);
}

// Another run, with other results, is at work on the same recordings.
TEST(Faults, AnotherRunsConvertedSoundsAreLeftAlone) {
  Event event;
  const Strings list = twoOf(event);
  (void)event.write("a.wav" + std::string(run::kConvertedSuffix), "the other's");
  const auto before = event.mediaFiles();
  const auto other = std::make_unique<report::FolderLock>(fs::path(list[0]).parent_path());
  ASSERT_TRUE(other->isMine());
  expectWorks(event, list);
  EXPECT_TRUE(event.mediaFiles() == before);
}

TEST(Faults, AFullDriveIsSaidAndTheLastResultStands) {
  Event event;
  const Strings list = twoOf(event);
  fs::create_directories(event.results());
  if (mount("tmpfs", event.results().c_str(), "tmpfs", 0, "size=1m") != 0)
    GTEST_SKIP() << "needs the right to mount";
  expectWorks(event, list);
  const std::string page = pageOf(event);
  for (const auto& item : fs::directory_iterator(event.results() / "debugfiles")) fs::remove(item);
  {
    std::ofstream filling(event.results() / "mine.mov", std::ios::binary);
    while (filling << std::string(4096, 'x') << std::flush) {
    }
  }
  const auto before = event.mediaFiles();
  (void)event.run(list);
  EXPECT_EQ(event.outcome.groups.size(), 1u);
  EXPECT_FALSE(event.outcome.failures.empty());
  EXPECT_EQ(pageOf(event), page);
  EXPECT_TRUE(event.mediaFiles() == before);
  fs::resize_file(event.results() / "mine.mov",
                  fs::file_size(event.results() / "mine.mov") - 300000);
  event.clock.now = "15:00:00";
  expectWorks(event, list);  // with room for the documents, but not for the sounds
  EXPECT_GT(fs::file_size(event.results() / "SYNCED_fcp--15-00-00--.XML"), 1000u);
  umount2(event.results().c_str(), MNT_DETACH);
}

TEST(Faults, ASoundThatIsLostOnTheWayIsToldAndTheOthersArePlaced) {
  Event event;
  Strings list = twoOf(event);
  list.push_back(event.sound("c.wav", cut(liveSound(30, 51), 3, 27)));
  event.progress.atStage = [&](run::Stage stage) {
    if (stage == run::Stage::compare)
      fs::remove(event.results() / "debugfiles" / run::convertedName("c.wav"));
  };
  (void)event.run(list);
  EXPECT_NE(event.reasonFor(list[2]).find("could not be read any more"), std::string::npos);
  EXPECT_EQ(event.outcome.ignored.size(), 1u);
  EXPECT_TRUE(event.outcome.unsynced.empty());
  ASSERT_EQ(event.outcome.groups.size(), 1u);
  EXPECT_EQ(event.outcome.groups[0].members.size(), 2u);
}

TEST(Faults, AsManyFilesAsThereAreIndicesMayComeFromAnyDevices) {
  Event event;
  const auto sound = liveSound(30, 51);
  const std::string silence = event.sound("0.wav", std::vector<std::int16_t>(4000));
  Strings list;
  const auto addDevice = [&](const std::string& first, int count) {
    list.emplace_back(run::kBeginMarker);
    list.push_back(first);
    for (int i = 1; i < count; ++i) {
      list.push_back(event.media(std::to_string(list.size()) + ".wav"));
      fs::create_hard_link(silence, list.back());
    }
    list.emplace_back(run::kEndMarker);
  };
  addDevice(event.sound("a.wav", cut(sound, 0, 24)), 500);
  addDevice(event.sound("b.wav", cut(sound, 6, 30)), 498);
  Copies copies;
  event.processes = &copies;
  (void)event.run(list);
  ASSERT_EQ(event.outcome.groups.size(), 1u);
  const auto& members = event.outcome.groups[0].members;
  ASSERT_EQ(members.size(), 2u);
  EXPECT_NEAR(members[1].offsetSeconds, 6, 0.01);
  EXPECT_NE(members[0].device, members[1].device);
  list.push_back(event.sound("one too many.wav", cut(sound, 0, 10)));
  EXPECT_NE(event.run(list).front().find("999 files"), std::string::npos);
}

/// Not a test: the run that the next one kills.
TEST(Faults, DISABLED_Victim) {
  const std::string folder = std::getenv("KESTREL_VICTIM_FOLDER");
  report::useProfileFolder(folder + "/profile");
  run::SystemProcesses processes;
  run::MediaInfoProbe probe;
  StillClock clock;
  QuietDesktop desktop;
  report::NoConsole console;
  SuddenEnd progress(std::stoi(std::getenv("KESTREL_VICTIM_STEPS")));
  const std::atomic<bool> never = false;
  run::SyncRun run({processes, probe, clock, desktop, console, progress, never}, {});
  (void)run.synco({folder + "/media/a.wav", folder + "/media/b.wav"}, 0.99, 1280, 720, 25, 1);
}

TEST(Faults, AKilledRunLeavesNothingThatTheNextOneDoesNotClear) {
  Event event;
  const Strings list = twoOf(event);
  const auto before = event.mediaFiles();
  const std::string self = fs::read_symlink("/proc/self/exe");
  setenv("KESTREL_VICTIM_FOLDER", fs::path(list[0]).parent_path().parent_path().c_str(), 1);
  bool left = false;
  for (int steps = 1; steps < 12; steps += 2) {
    setenv("KESTREL_VICTIM_STEPS", std::to_string(steps).c_str(), 1);
    const std::atomic<bool> never = false;
    const run::ProcessResult killed = run::SystemProcesses().run(
        {{}, {self, "--gtest_also_run_disabled_tests", "--gtest_filter=Faults.DISABLED_Victim"}},
        never);
    EXPECT_EQ(killed.signal, SIGKILL) << steps;
    left |= event.mediaFiles() != before;
    expectWorks(event, list);
    EXPECT_TRUE(event.mediaFiles() == before) << steps;
  }
  EXPECT_TRUE(left);  // otherwise nothing was tried
}

#endif
