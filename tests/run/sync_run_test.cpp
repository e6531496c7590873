// Whole runs with the real ffmpeg and MediaInfo.
#ifndef _WIN32
#include <unistd.h>
#endif

#include "event.h"
#include "report/run_report.h"
#include "run/entries.h"
#include "run/media_info_library.h"
#include "tests/awkward_names.h"

namespace fs = std::filesystem;
using Strings = std::vector<std::string>;

namespace {

/// Does not start ffmpeg but behaves as if a run were cancelled while it works.
class CancellingProcesses final : public run::ProcessRunner {
 public:
  explicit CancellingProcesses(std::atomic<bool>& cancelled) : cancelled_(cancelled) {}
  run::ProcessResult run(const run::Command& command, const std::atomic<bool>&) override {
    std::ofstream(report::fromUtf8(command.arguments.back())) << std::string(5000, 'x');
    cancelled_ = true;
    return {};
  }

 private:
  std::atomic<bool>& cancelled_;
};

class NoProcesses final : public run::ProcessRunner {
 public:
  run::ProcessResult run(const run::Command&, const std::atomic<bool>&) override {
    return {{"cannot start ffmpeg: No such file or directory"}, 0, {}};
  }
};

const run::Member* memberOf(const run::Outcome& outcome, const std::string& path) {
  for (const run::Group& group : outcome.groups)
    for (const run::Member& member : group.members)
      if (member.path == path) return &member;
  return nullptr;
}

}  // namespace

TEST(SyncRun, FindsASmallEventAndWritesAllOfItsDocuments) {
  Event event;
  const auto sound = liveSound(60, 7);
  const std::string a = event.clip(std::string("a ") + kAwkwardName + ".mp4", cut(sound, 0, 45));
  const std::string b = event.clip("b.MOV", cut(sound, 12.34, 60));
  const std::string c = event.sound("c.wav", cut(sound, 5.5, 50));
  const std::string d = event.sound("stranger.WAV", liveSound(30, 8));
  const auto before = event.mediaFiles();
  const fs::path lists = event.results() / "VEGAS_SEQUENCES";
  fs::create_directories(lists);
  for (const char* name : {"7.edl", "7b.edl", ".edl"}) std::ofstream(lists / name) << "old";
  const Strings result = event.run({a, b, c, d});

  EXPECT_EQ(result, Strings{report::kSuccess});
  ASSERT_EQ(event.outcome.groups.size(), 1u);
  for (const auto& [path, offset] : {std::pair{a, 0.0}, {b, 12.34}, {c, 5.5}}) {
    const run::Member* member = memberOf(event.outcome, path);
    ASSERT_TRUE(member) << path;
    EXPECT_NEAR(member->offsetSeconds, offset, 0.07) << path;
    EXPECT_EQ(member->frameRate.has_value(), path != c);
  }
  EXPECT_NEAR(memberOf(event.outcome, c)->durationSeconds, 44.5, 1e-9);
  EXPECT_NE(event.reasonFor(d), "");
  EXPECT_EQ(event.mediaFiles(), before);
  for (const char* name :
       {"SYNCED_fcp--14-05-09--.XML", "UNSYNCED_fcp--14-05-09--.XML",
        "SYNCED_premiereProCS6+ONLY--14-05-09--.XML", "UNSYNCED_premierePro--14-05-09--.XML",
        "SYNCED_FCP_X--14-05-09--.FCPXML", "UNSYNCED_FCP_X--14-05-09--.FCPXML",
        "VEGAS_SEQUENCES/1.edl", "READ2SYNC.txt", "tempresults.txt", "debugfiles/log_file.txt",
        "debugfiles/c.wav_temporary_file_to_be_deleted.wav"})
    EXPECT_GT(fs::file_size(event.results() / name), 0u) << name;
  for (const std::string& output : event.outcome.outputs) EXPECT_TRUE(fs::exists(output)) << output;
  EXPECT_FALSE(fs::exists(lists / "7.edl")) << "a list of an earlier run passes for one of this";
  EXPECT_TRUE(fs::exists(lists / "7b.edl") && fs::exists(lists / ".edl"));
  std::string log = readWhole(event.results() / "debugfiles/log_file.txt");
  std::erase(log, '\r');
  for (const char* line : {"entering proveri all   ------->>>>   \n", "allocate memory done..\n",
                           "\n1045 after decompose finalnamatrica[i][8]=", "\n1051\n1230\n1233\n"})
    EXPECT_NE(log.find(line), log.npos) << line;
  const std::string table = readWhole(event.work() / "csvtabela-clean.csv");
  EXPECT_EQ(std::ranges::count(table, '\n'), 3);  // three pairs hear each other
  EXPECT_EQ(event.desktop.shown, Strings{report::toUtf8(event.results())});
  EXPECT_FALSE(event.progress.outOfRange);
  EXPECT_EQ(event.progress.signals, 1);
}

// Its sound may begin later than the picture, by an edit list or by the time stamps.
TEST(SyncRun, AClipStandsWhereItsPictureBegins) {
  Event event;
  const auto sound = liveSound(60, 11);
  const std::string a = event.sound("a.wav", sound), late = event.sound("late", cut(sound, 20, 50));
  const std::string picture = "color=s=64x48:r=25:d=30";
  const auto clip = [&](const std::string& name, const std::string& codec) {
    return event.made(name, {"-f", "lavfi", "-i", picture, "-itsoffset", "0.4", "-i", late, "-ar",
                             "48000", "-c:v", "mpeg2video", "-c:a", codec});
  };
  const std::string mov = clip("late.mov", "aac"), mts = clip("late.mts", "ac3");
  (void)event.run({a, mov, mts});
  for (const std::string& path : {mov, mts}) {
    const run::Member* member = memberOf(event.outcome, path);
    ASSERT_TRUE(member) << path;
    EXPECT_NEAR(member->offsetSeconds, 19.6, 0.003) << path;
    EXPECT_NEAR(member->durationSeconds, 30.4, 0.1) << path;
  }
  const std::string fcp = readWhole(event.results() / "SYNCED_fcp--14-05-09--.XML");
  EXPECT_NE(fcp.find("<start>490</start>"), std::string::npos);  // 19.6 s of 25 frames
}

TEST(SyncRun, ListensToAnotherTrackWhereTheFirstIsSilent) {
  Event event;
  const auto sound = liveSound(60, 12);
  const std::string a = event.sound("a.wav", sound), b = event.sound("b", cut(sound, 10, 40));
  const std::string silence = event.sound("silence", std::vector<std::int16_t>(30 * 8000));
  const std::string second = event.made(
      "second.mov", {"-i", silence, "-i", b, "-f", "lavfi", "-i", "color=s=64x48:r=25:d=30", "-map",
                     "0", "-map", "1", "-map", "2", "-c:v", "mpeg4", "-c:a", "pcm_s16le"});
  const std::string cancelling =
      event.made("cancelling.wav", {"-i", b, "-af", "pan=stereo|c0=c0|c1=-1*c0"});
  const std::string mute = event.made("mute.wav", {"-i", silence, "-ac", "2"});
  (void)event.run({a, second, cancelling, mute});
  for (const std::string& path : {second, cancelling}) {
    const run::Member* member = memberOf(event.outcome, path);
    ASSERT_TRUE(member) << path;
    EXPECT_NEAR(member->offsetSeconds, 10, 0.003) << path;
  }
  EXPECT_TRUE(event.noticed("so its track 2 was listened to"));
  EXPECT_TRUE(event.noticed("cancelling.wav cancel each other out"));
  EXPECT_EQ(event.reasonFor(mute), "It is silent.");
}

TEST(SyncRun, EveryUnusableFileIsNamedWithItsReasonAndTheRestGoesOn) {
  Event event;
  const auto sound = liveSound(40, 9);
  const std::string a = event.sound("a.wav", cut(sound, 0, 30));
  const std::string b = event.sound("b.wav", cut(sound, 6, 40));
  const std::string whole = event.clip("whole.mp4", cut(sound, 0, 20));
  const std::string text = readWhole(report::fromUtf8(whole));
  ASSERT_TRUE(ffmpeg(
      {"-f", "lavfi", "-i", "color=s=64x48:r=25:d=2", "-c:v", "mpeg4", event.media("mute.mp4")}));
  ASSERT_TRUE(ffmpeg({"-i", a, event.media("sound.mka")}));
  fs::create_directories(report::fromUtf8(event.media("folder.mp4")));
  const std::map<std::string, std::string> reasons = {
      {event.write("empty.mp4", ""), "empty"},
      {event.write("text.mp4", "this is no clip\n"), "not a media file"},
      {event.write("cut.mp4", text.substr(0, text.size() / 2)), "cut off"},
      {event.media("mute.mp4"), "no sound"},
      {event.sound("0.3.wav", cut(sound, 0, 0.3)), "only 0.3 s"},
      {event.sound("silent.wav", std::vector<std::int16_t>(80000)), "silent"},
      {event.media("absent.mov"), "does not exist"},
      {"relative absent.mov", "does not exist"},
      {event.media("folder.mp4"), "is a folder"},
#ifndef _WIN32
      {"/dev/zero", "is not a file"},
#endif
      {event.media("sound.mka"), "the ending .mka"},
      {event.write("live.wav", "#EXTM3U\nhttp://127.0.0.1/endless.ts\n"), "a playlist"},
      {event.write("other.mp4", "ffconcat version 1.0\nfile '/etc/passwd'\n"), "a playlist"},
      {event.write("stream.mov", "<?xml version='1.0'?><MPD xmlns='urn:mpeg:dash:schema'/>"),
       "a playlist"},
      {event.sound("tiny.wav", cut(sound, 0, 0.01)), "too short"}};
  Strings list{a, b, a};
  for (const auto& [path, reason] : reasons) list.push_back(path);
  const auto before = event.mediaFiles();
  const Strings result = event.run(list);

  for (const auto& [path, reason] : reasons)
    EXPECT_NE(event.reasonFor(path).find(reason), std::string::npos)
        << path << ": " << event.reasonFor(path);
  EXPECT_EQ(result.front(), "first");
  EXPECT_EQ(result.size(), 1 + event.outcome.ignored.size());
  EXPECT_TRUE(std::ranges::count(result, "IGNORE" + event.media("text.mp4")));
  EXPECT_TRUE(event.noticed("listed more than once"));
  ASSERT_EQ(event.outcome.groups.size(), 1u);
  EXPECT_NEAR(memberOf(event.outcome, b)->offsetSeconds, 6, 0.07);
  EXPECT_EQ(event.mediaFiles(), before);
}

#ifndef _WIN32
TEST(SyncRun, WhatPermissionsForbidIsSaid) {
  Event event;
  for (const char* folder : {"", "locked"}) fs::create_directories(event.media(folder));
  const std::string secret = event.sound("secret.wav", liveSound(3, 19));
  const std::string locked = event.sound("locked/a.wav", liveSound(3, 20));
  fs::permissions(secret, fs::perms::none);
  fs::permissions(event.media("locked"), fs::perms(0555));
  fs::permissions(event.media("."), fs::perms::all);
  fs::permissions(event.results().parent_path().parent_path(), fs::perms::all);
  const uid_t user = geteuid();
  ASSERT_EQ(user == 0 ? seteuid(65534) : 0, 0);  // nothing is forbidden to the superuser
  event.run({secret, locked});
  ASSERT_EQ(seteuid(user), 0);
  EXPECT_NE(event.reasonFor(secret).find("may not be read"), std::string::npos);
  EXPECT_EQ(event.outcome.ignored.size(), 1u);  // the other's sound is made elsewhere
  EXPECT_NE(event.reasonFor(locked).find("no other usable recording"), std::string::npos)
      << event.reasonFor(locked);
  fs::permissions(event.media("locked"), fs::perms::owner_all);
}
#endif

TEST(SyncRun, UnusualSoundIsReadAllTheSame) {
  Event event;
  const auto sound = liveSound(50, 10);
  const std::string a = event.sound("8 bits.wav", cut(sound, 0, 40));
  const std::string b = event.sound("b.wav", cut(sound, 10, 50)), c = event.media("six.wav");
  ASSERT_TRUE(ffmpeg({"-i", a, "-c:a", "pcm_u8", "-ar", "8000", event.media("8.wav")}));
  ASSERT_TRUE(ffmpeg({"-i", b, "-c:a", "pcm_s24le", "-ar", "96000", "-ac", "6", c}));
  Strings list{event.media("8.wav"), c};
  for (const char* name : {"b.Flac", "b.aiff", "b.opus", "b.aac"})
    list.push_back(event.made(name, {"-i", b, "-ar", "48000"}));
  EXPECT_EQ(event.run(list), Strings{report::kSuccess});
  ASSERT_EQ(event.outcome.groups.size(), 1u);
  for (const std::string& path : list)
    EXPECT_NEAR(memberOf(event.outcome, path)->offsetSeconds, path == list[0] ? 0 : 10, 0.07)
        << path;
}

TEST(SyncRun, ASourceNamedLikeAConvertedFileIsNeverTouched) {
  Event event;
  const auto sound = liveSound(40, 11);
  const std::string a = event.sound("a.wav", cut(sound, 0, 30));
  const std::string likeConverted =
      event.sound("a.wav" + std::string(run::kConvertedSuffix), cut(sound, 5, 40));
  const std::string b = event.sound("b.wav", cut(sound, 8, 40));
  const auto before = event.mediaFiles();
  event.run({a, likeConverted, b});
  EXPECT_NE(event.reasonFor(likeConverted).find("broken off"), std::string::npos);
  EXPECT_NEAR(memberOf(event.outcome, b)->offsetSeconds, 8, 0.07);
  EXPECT_EQ(event.mediaFiles(), before);
}

TEST(SyncRun, FilesOfOneNameAndOfOneDeviceStayApart) {
  Event event;
  const auto sound = liveSound(90, 12);
  for (const char* folder : {"1", "2", "3"}) fs::create_directories(event.media(folder));
  const std::string a = event.sound("1/clip.wav", cut(sound, 0, 40));
  const std::string b = event.sound("2/clip.wav", cut(sound, 45, 90));
  const std::string c = event.sound("3/clip.wav", cut(sound, 20, 80));
  const std::string broken = event.write("broken.mov", "x");
  // the broken file goes, and the indices of the device no longer fit: nothing may come of that
  const Strings list{broken, std::string(run::kBeginMarker), a, b, std::string(run::kEndMarker), c};
  event.run(list);
  ASSERT_EQ(event.outcome.groups.size(), 1u);
  const run::Member *first = memberOf(event.outcome, a), *second = memberOf(event.outcome, b);
  ASSERT_TRUE(first && second && memberOf(event.outcome, c));
  EXPECT_NEAR(second->offsetSeconds, 45, 0.07);
  EXPECT_EQ(first->device, second->device);
  EXPECT_NE(first->device, memberOf(event.outcome, c)->device);
  EXPECT_NE(first->soundPath, second->soundPath);
}

TEST(SyncRun, EndsEarlyWhenNothingMatches) {
  Event event;
  const std::string a = event.sound("a.wav", liveSound(20, 13));
  const std::string broken = event.write("broken.mov", "x");
  EXPECT_EQ(event.run({a, event.sound("b.wav", liveSound(20, 14)), broken}),
            (Strings{"nema", "first", "IGNORE" + broken + std::string(run::kConvertedSuffix)}));
  EXPECT_FALSE(fs::exists(event.work() / "csvtabela.csv"));
  EXPECT_EQ(event.outcome.unsynced.size(), 2u);
  EXPECT_EQ(event.run({a}), (Strings{"nema", "first"}));
  EXPECT_TRUE(event.noticed("One recording alone"));
  EXPECT_EQ(event.run({}), (Strings{"nema", "first"}));
  EXPECT_EQ(event.run({std::string(run::kBeginMarker), std::string(run::kEndMarker)}),
            (Strings{"nema", "first"}));
  EXPECT_TRUE(event.noticed("no usable file"));
}

TEST(SyncRun, TooManyEntriesAreRefusedBeforeAnythingRuns) {
  Event event;
  const Strings result = event.run(Strings(999, event.sound("a.wav", liveSound(2, 15))));
  EXPECT_NE(result.front().find("998 at most"), std::string::npos);
  EXPECT_TRUE(event.noticed("998 at most"));
  EXPECT_EQ(event.progress.items, 0);
}

TEST(SyncRun, ACancelledRunLeavesNothingBesideTheSources) {
  Event event;
  CancellingProcesses processes(event.cancelled);
  event.processes = &processes;
  Strings list;
  for (int i = 0; i < 6; ++i)
    list.push_back(event.sound(std::to_string(i) + ".wav", liveSound(2, 16)));
  const auto before = event.mediaFiles();
  EXPECT_NE(event.run(list).front().find("cancelled"), std::string::npos);
  EXPECT_TRUE(event.outcome.cancelled);
  EXPECT_EQ(event.mediaFiles(), before);
}

TEST(SyncRun, MissingProgramsAreSaid) {
  Event event;
  const std::string clip = event.clip("a.mp4", liveSound(3, 17));
  run::MediaInfoLibrary missing("libno-such-library.so.0");
  run::MediaInfoProbe noProbe(missing);
  event.probe = &noProbe;
  event.run({clip});
  EXPECT_NE(event.reasonFor(clip).find("MediaInfo"), std::string::npos);
  EXPECT_TRUE(event.noticed("MediaInfo"));
  NoProcesses noProcesses;
  event.processes = &noProcesses;
  event.run({clip});
  EXPECT_NE(event.reasonFor(clip).find("ffmpeg"), std::string::npos);
  EXPECT_TRUE(event.noticed("ffmpeg"));
}

TEST(SyncRun, PlacesAreFoundEvenIfTheResultsCannotBeWritten) {
  Event event;
  const auto sound = liveSound(40, 18);
  const Strings list{event.sound("a.wav", cut(sound, 0, 30)),
                     event.sound("b.wav", cut(sound, 6, 40))};
  const auto before = event.mediaFiles();
  report::useProfileFolder(list[0]);  // a file: nothing can be made below it
  event.desktop.moved = "C:\\Cloud\\Desktop";
  event.run(list);
  ASSERT_EQ(event.outcome.groups.size(), 1u);
  EXPECT_TRUE(event.noticed("cannot be created"));
  EXPECT_TRUE(event.noticed("Your desktop is the folder C:\\Cloud\\Desktop"));
  EXPECT_TRUE(event.noticed("The shortcut SYNCED on your desktop leads there."));
  EXPECT_EQ(event.desktop.shortcuts,
            Strings{"C:\\Cloud\\Desktop -> " + list[0] + "/Desktop/SYNCED"});
  EXPECT_EQ(event.mediaFiles(), before);
}

TEST(SyncRun, TheLogOfTheLastRunIsKeptInModeOneOnly) {
  Event event;
  const fs::path log = event.results() / "debugfiles/log_file.txt";
  fs::create_directories(log.parent_path());
  std::ofstream(log) << "the last run\n";
  event.run({}, 1);
  EXPECT_TRUE(readWhole(log).starts_with("the last run"));
  event.run({}, 0);
  EXPECT_TRUE(readWhole(log).starts_with("pocetok na sync c kernel...."));
}
