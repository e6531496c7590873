// Runs that fill a project, and what is done with it afterwards.
#ifndef _WIN32

#include "event.h"
#include "project/edit.h"
#include "project/look_up.h"
#include "project/project_file.h"
#include "run/document_stage.h"
#include "run/entries.h"
#include "run/project_stage.h"
#include "run/sound_cache.h"

namespace fs = std::filesystem;
using project::Id;
using project::Project;
using Strings = std::vector<std::string>;

namespace {

/// Counts the files that real programs are asked to convert.
class CountingProcesses final : public run::ProcessRunner {
 public:
  run::ProcessResult run(const run::Command& command, const std::atomic<bool>& stop) override {
    for (const std::string& word : command.arguments)
      converted += word.ends_with(run::kConvertedSuffix) && !word.starts_with(run::kDummyEntry);
    return programs_.run(command, stop);
  }
  std::atomic<int> converted = 0;

 private:
  run::SystemProcesses programs_;
};

/// A run over an event, and what it filled.
struct ProjectRun {
  Project run(const Strings& list) {
    const run::Services services{processes,     event.mediaInfo, event.clock,     event.desktop,
                                 event.console, event.progress,  event.cancelled, cache};
    run::SyncRun run(services, event.options);
    (void)run.synco(list, 0.99, 1280, 720, 29.97f, 1);
    event.outcome = run.outcome();
    return run.project();
  }
  Project runAgain(const Project& before, const std::vector<Id>& again = {}) {
    event.options.project = before;
    event.options.again = again;
    return run(run::listOf(before));
  }
  /// The texts of all documents written from `project`, by name.
  std::map<std::string, std::string> documents(const Project& project, const std::string& folder) {
    const run::Services services{event.systemProcesses, event.mediaInfo, event.clock,
                                 event.desktop,         event.console,   event.progress,
                                 event.cancelled};
    const run::Outcome written =
        run::exportDocuments(project, report::toUtf8(event.work() / folder), services);
    EXPECT_TRUE(written.notices.empty());
    std::map<std::string, std::string> texts;
    for (const std::string& path : written.outputs)
      texts[report::toUtf8(fs::path(path).filename())] = readWhole(report::fromUtf8(path));
    return texts;
  }
  Event event;
  CountingProcesses processes;
  const run::SoundCache* cache = nullptr;
};

Id idOf(const Project& project, const std::string& path) {
  for (const project::Recording* recording : allRecordings(project))
    if (mainFile(*recording).path == path) return recording->id;
  return 0;
}

double startOf(const Project& project, const std::string& path) {
  const project::Clip* clip = clipOf(project, idOf(project, path));
  return clip ? clip->startSeconds : -1e9;
}

/// Both without the lines in which they differ; how many those are.
int differences(const std::string& first, const std::string& second) {
  std::istringstream a(first), b(second);
  int count = 0;
  for (std::string one, other; std::getline(a, one) && std::getline(b, other);)
    count += one != other;
  return count;
}

}  // namespace

TEST(ProjectRun, IsFilledSavedOpenedChangedAndExported) {
  ProjectRun run;
  Event& event = run.event;
  const auto sound = liveSound(60, 7);
  const std::string a = event.clip("A 1.mp4", cut(sound, 0, 25));
  const std::string a2 = event.clip("A 2.mp4", cut(sound, 30, 50));
  const std::string b = event.clip("b.MOV", cut(sound, 12.34, 60));
  const std::string c = event.sound("c.wav", cut(sound, 5.5, 50));
  const std::string d = event.sound("stranger.wav", liveSound(30, 8));
  const std::string e = event.write("broken.wav", "no sound");
  const Project filled =
      run.run({std::string(run::kBeginMarker), a, a2, std::string(run::kEndMarker), b, c, d, e});

  ASSERT_EQ(filled.groups.size(), 1u);
  EXPECT_EQ(filled.devices.size(), 5u);
  EXPECT_EQ(deviceOf(filled, idOf(filled, a)), deviceOf(filled, idOf(filled, a2)));
  EXPECT_NEAR(startOf(filled, b) - startOf(filled, a), 12.34, 0.07);
  EXPECT_NEAR(startOf(filled, c) - startOf(filled, a), 5.5, 0.07);
  EXPECT_EQ(stateOf(filled, *findRecording(filled, idOf(filled, c))), project::State::sure);
  EXPECT_EQ(stateOf(filled, *findRecording(filled, idOf(filled, d))), project::State::unplaced);
  EXPECT_EQ(stateOf(filled, *findRecording(filled, idOf(filled, e))), project::State::unusable);
  EXPECT_EQ(findRecording(filled, idOf(filled, e))->leftOut->reason, event.reasonFor(e));
  EXPECT_EQ(filled.settings.framesPerSecond, 29.97);
  const auto likely = likelyPlaces(filled, idOf(filled, b));
  ASSERT_FALSE(likely.empty());
  EXPECT_NEAR(likely.front().startSeconds, startOf(filled, b), 0.1);

  // what the run wrote and saved is what opening and exporting gives
  const project::LoadedProject opened = project::loadProject(event.outcome.project);
  ASSERT_TRUE(opened.project.has_value()) << opened.error;
  EXPECT_TRUE(opened.missing.empty());
  EXPECT_EQ(*opened.project, filled);
  const auto before = run.documents(*opened.project, "again");
  EXPECT_GE(before.size(), 8u);
  for (const std::string& path : event.outcome.outputs) {
    if (path.ends_with(".csv")) continue;
    EXPECT_EQ(before.at(report::toUtf8(fs::path(path).filename())),
              readWhole(report::fromUtf8(path)));
  }

  // a nudge by ten frames, saved, opened and exported, changes that clip alone
  const Project nudged =
      project::moveClips(*opened.project, std::vector{idOf(filled, b)}, 10 / 29.97);
  const std::string file = report::toUtf8(event.work() / "nudged.kestrel");
  ASSERT_TRUE(project::saveProject(nudged, file).ok());
  const auto after = run.documents(*project::loadProject(file).project, "nudged");
  for (const auto& [name, text] : before) {
    const bool synced = !name.starts_with("UNSYNCED");
    EXPECT_EQ(after.at(name) != text, synced) << name;
    if (name.ends_with(".edl")) {
      EXPECT_EQ(differences(text, after.at(name)), 2);
    }
  }
}

TEST(ProjectRun, PlacesSelectedClipsAgainAgainstPinnedOnes) {
  ProjectRun run;
  Event& event = run.event;
  const auto sound = liveSound(60, 9);
  const std::string a = event.sound("a.wav", cut(sound, 0, 40));
  const std::string b = event.sound("b.wav", cut(sound, 10, 50));
  const std::string c = event.sound("c.wav", cut(sound, 20, 60));
  const Project first = run.run({a, b});
  ASSERT_EQ(first.groups.size(), 1u);

  // moved far off by hand and pinned: stays there, and the forgotten card is placed beside it
  Project edited = project::moveClips(first, std::vector{idOf(first, b)}, 100);
  edited = project::pinClips(std::move(edited), std::vector{idOf(first, a), idOf(first, b)}, true);
  project::Device forgotten;
  forgotten.name = "Forgotten";
  forgotten.recordings.emplace_back().files.emplace_back().path = c;
  edited = project::addDevices(std::move(edited), {forgotten});
  const Project second = run.runAgain(edited);
  EXPECT_EQ(startOf(second, a), startOf(edited, a));
  EXPECT_EQ(startOf(second, b), startOf(edited, b));
  const double fromA = startOf(second, c) - startOf(second, a);
  const double fromB = startOf(second, c) - startOf(second, b);
  EXPECT_TRUE(std::abs(fromA - 20) < 0.05 || std::abs(fromB - 10) < 0.05) << fromA << ' ' << fromB;

  // only what is selected moves, and it finds back to where it sounds
  Project wrong = project::pinClips(second, std::vector{idOf(first, b)}, false);
  wrong = project::moveClips(std::move(wrong), std::vector{idOf(wrong, c)}, 3);
  const Project third = run.runAgain(wrong, {idOf(first, b)});
  EXPECT_EQ(startOf(third, c), startOf(wrong, c));
  EXPECT_EQ(startOf(third, a), startOf(wrong, a));
  EXPECT_EQ(clipOf(third, idOf(first, b))->placedBy, project::PlacedBy::sound);
  const double toA = startOf(third, b) - startOf(third, a);
  const double toC = startOf(third, b) - startOf(third, c);
  EXPECT_TRUE(std::abs(toA - 10) < 0.05 || std::abs(toC + 10) < 0.05) << toA << ' ' << toC;
}

TEST(ProjectRun, WhatWasHeardOnceIsNotDecodedAgain) {
  ProjectRun run;
  Event& event = run.event;
  const auto sound = liveSound(60, 10);
  const std::string a = event.sound("a.wav", cut(sound, 0, 40));
  const std::string b = event.clip("b.mp4", cut(sound, 10, 50));
  const std::string c = event.sound("c.wav", liveSound(20, 11));
  const run::SoundCache cache(report::toUtf8(event.work() / "cache"));
  run.cache = &cache;
  const Project first = run.run({a, b, c});
  ASSERT_EQ(first.groups.size(), 1u);
  EXPECT_EQ(run.processes.converted, 3);
  EXPECT_GT(cache.bytes(), 1'000'000u);
  EXPECT_EQ(run.run({a, b, c}), first);
  EXPECT_EQ(run.processes.converted, 3);
  // another sound in place of one of them is heard
  (void)event.sound("c.wav", cut(sound, 15, 40));
  const Project third = run.run({a, b, c});
  EXPECT_EQ(run.processes.converted, 4);
  EXPECT_NEAR(startOf(third, c) - startOf(third, a), 15, 0.05);
}

#endif
