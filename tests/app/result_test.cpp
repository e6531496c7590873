#include <gtest/gtest.h>
#include <sndfile.h>

#include <QTemporaryDir>
#include <QTest>
#include <cmath>

#include "app/clip_facts.h"
#include "app/clock_text.h"
#include "app/result_model.h"
#include "app/run_forecast.h"
#include "app/waveform.h"
#include "app/window_place.h"
#include "project/edit.h"
#include "tests/app/qt_printing.h"

namespace {

/// Two seconds at 8000 Hz: silence, then a second that rises to a quarter of full scale.
std::string writeSound(const QTemporaryDir& folder) {
  const std::string path = folder.filePath("sound.wav").toStdString();
  SF_INFO info = {0, 8000, 1, SF_FORMAT_WAV | SF_FORMAT_PCM_16, 0, 0};
  SNDFILE* file = sf_open(path.c_str(), SFM_WRITE, &info);
  for (int i = 0; i < 16000; ++i) {
    const float sample = i < 8000 ? 0.0f : 0.25f * static_cast<float>(i - 8000) / 8000;
    sf_write_float(file, &sample, 1);
  }
  sf_close(file);
  return path;
}

TEST(Waveform, FollowsLoudnessRelativeToTheLoudest) {
  const QTemporaryDir folder;
  const QList<quint8> peaks = app::readWaveform(writeSound(folder)).peaks;
  ASSERT_EQ(peaks.size(), 200);
  EXPECT_EQ(peaks[50], 0);
  EXPECT_NEAR(peaks[150], 128, 2);
  EXPECT_EQ(peaks[199], 255);
  EXPECT_TRUE(app::readWaveform("/nonexistent.wav").peaks.isEmpty());
}

/// Two cameras and a recorder of which one clip could not be placed and one file not be used.
project::Project sampleProject() {
  project::Project project;
  project.devices = {{1, "Anna"}, {2, "Zoom", project::DeviceKind::recorder}};
  project::Id id = 10;
  const auto add = [&](int device, const char* path, double seconds) {
    project::Recording recording;
    recording.id = id++;
    recording.files.emplace_back().path = path;
    recording.lengthSeconds = seconds;
    project.devices[static_cast<std::size_t>(device)].recordings.push_back(recording);
  };
  add(0, "/card 1/CamA_01.mov", 10);
  add(0, "/card 1/CamA_02.mov", 10);
  add(1, "/b/zoom.wav", 100);
  add(1, "/c/alone.wav", 5);
  add(1, "/c/broken.wav", 0);
  project.devices[1].recordings[1].leftOut = project::Reason{"heard nothing", "remedy"};
  project.devices[1].recordings[2].usable = false;
  project::Group group{5, "Group 1", {}};
  for (const auto& [recording, start] : {std::pair{10, 7.0}, {12, 9.5}, {11, 19.0}}) {
    project::Clip clip;
    clip.recording = recording;
    clip.startSeconds = start;
    clip.confidence = 0.99;
    clip.errorSeconds = 0.0004;
    clip.driftPpm = -0.01;
    group.clips.push_back(clip);
  }
  group.clips[1].confidence = 0.5;
  group.clips[1].matchedWith = {10, 11};
  project.groups = {group};
  project.written.files = {"/d/SYNCED_fcp--14-05-09--.XML", "/d/UNSYNCED_fcp--14-05-09--.XML",
                           "/d/READ2SYNC.txt", "/d/VEGAS_SEQUENCES/group1.edl",
                           "/d/VEGAS_SEQUENCES/group2.edl"};
  return project;
}

TEST(Timeline, OneLanePerDeviceFromTheEarliestClipOn) {
  app::ResultModel result;
  result.show(sampleProject(), {});
  const app::TimelineModel* timeline = result.timeline(0);
  ASSERT_NE(timeline, nullptr);
  EXPECT_EQ(timeline->lanes(), QStringList({"Anna", "Zoom"}));
  EXPECT_EQ(timeline->lengthSeconds(), 102.5);
  EXPECT_EQ(timeline->clips()[1].start, 2.5);
  EXPECT_EQ(timeline->clips()[1].lane, 1);
  EXPECT_EQ(timeline->nextUnsure(-1), 1);
  EXPECT_EQ(timeline->nextUnsure(1), 1) << "from the first one again";
  EXPECT_EQ(timeline->overlap(0, 1), QList<double>({2.5, 10}));
}

TEST(Timeline, StaysTheSameObjectWhenTheProjectChanges) {
  app::ResultModel result;
  result.show(sampleProject(), {});
  app::TimelineModel* timeline = result.timeline(0);
  const std::vector<project::Id> zoom = {12};
  result.show(project::moveClips(sampleProject(), zoom, 0.001), {});
  EXPECT_EQ(result.timeline(0), timeline);
  EXPECT_NEAR(timeline->clips()[1].start, 2.501, 1e-9);
  EXPECT_EQ(timeline->clips()[1].state, project::State::byHand);
  result.show({}, {});
  EXPECT_EQ(result.timeline(0), nullptr);
}

TEST(Timeline, WaveformsArriveInTheBackground) {
  const QTemporaryDir folder;
  app::ResultModel result;
  result.show(sampleProject(), {{"/b/zoom.wav", writeSound(folder)}});
  EXPECT_TRUE(QTest::qWaitFor([&] { return result.timeline(0)->waveform(1).peaks.size() == 200; }));
  EXPECT_EQ(result.timeline(0)->waveform(1).loudestBetween(0, 400), 255);
}

TEST(Result, SaysWhatWasLeftOutAndWritten) {
  app::ResultModel result;
  result.show(sampleProject(), {});
  EXPECT_EQ(result.summary(),
            QString::fromUtf8("3 of 5 recordings synchronised in one group · 1 to look at"));
  EXPECT_EQ(result.leftOutCount(), 2);
  ASSERT_EQ(result.documents()->rowCount(), 2) << "a card for each program, none for the texts";
  const auto field = [&](int row, int role) {
    return result.documents()->data(result.documents()->index(row), Qt::UserRole + 1 + role);
  };
  EXPECT_EQ(field(0, 0), "Final Cut Pro 7");
  EXPECT_EQ(field(1, 1), 2);
}

TEST(Result, WhatWasNotWrittenComesBeforeTheNotes) {
  project::Project project = sampleProject();
  project.written.notices = {"A clock drifts.", "A file was not written: no."};
  app::ResultModel result;
  result.show(project, {}, {{"A file was not written: no."}, false});
  EXPECT_EQ(result.failureCount(), 1);
  ASSERT_EQ(result.notices()->rowCount(), 2) << "each is said once";
  const auto field = [&](int row, int role) {
    return result.notices()->data(result.notices()->index(row), Qt::UserRole + 1 + role);
  };
  EXPECT_EQ(field(0, 0), "A file was not written: no.");
  EXPECT_EQ(field(0, 1), true);
  EXPECT_EQ(field(1, 1), false);
}

TEST(Result, EndsInFiveWays) {
  using app::EndState;
  project::Project project = sampleProject();
  EXPECT_EQ(EndState::of(project, {}), EndState::Partly);
  project.devices[1].recordings.resize(1);
  EXPECT_EQ(EndState::of(project, {}), EndState::Success);
  EXPECT_EQ(EndState::of(project, {{"A file was not written."}, false}), EndState::Partly);
  EXPECT_EQ(EndState::of(project, {{"Another run goes on."}, true}), EndState::Failed);
  project.written.files = {"/d/READ2SYNC.txt"};
  EXPECT_EQ(EndState::of(project, {}), EndState::NothingWritten);
  project.groups.clear();
  EXPECT_EQ(EndState::of(project, {}), EndState::NothingMatched);
  for (project::Device& device : project.devices)
    for (project::Recording& recording : device.recordings) recording.usable = false;
  EXPECT_EQ(EndState::of(project, {}), EndState::Failed);
}

TEST(Facts, NumbersAreForPeople) {
  const QVariantMap facts = app::clipFacts(sampleProject(), 12);
  EXPECT_EQ(facts["place"], "0:00:02.500");
  EXPECT_EQ(facts["exact"], QString::fromUtf8("± 0.4 ms"));
  EXPECT_EQ(facts["drift"], "0.0 ppm") << "not -0.0";
  EXPECT_EQ(facts["confidence"], "50 %");
  EXPECT_EQ(facts["matched"], "CamA_01.mov, CamA_02.mov");
  EXPECT_TRUE(app::clipFacts(sampleProject(), 99).isEmpty());
  EXPECT_EQ(app::plainNumber(0.9900000095367432, 2), "0.99");
}

TEST(Forecast, FollowsTheSecondsOfMedia) {
  using std::chrono::seconds;
  app::RunForecast forecast({{"/long.mov", 3600}, {"/short.mov", 60}}, app::kFirstPace);
  EXPECT_FALSE(forecast.left(seconds(1)));
  forecast.report(run::Stage::convert, "/short.mov", 1, 2, seconds(1));
  const double afterShort = forecast.fraction();
  EXPECT_LT(afterShort, 0.05) << "one file of two, but a minute of 61";
  forecast.report(run::Stage::convert, "/long.mov", 2, 2, seconds(60));
  EXPECT_GT(forecast.fraction(), 0.5);
  const double before = forecast.fraction();
  forecast.report(run::Stage::probe, "", 0, 0, seconds(61));
  EXPECT_GE(forecast.fraction(), before) << "it never falls";
  EXPECT_GT(forecast.left(seconds(61))->count(), 0);
  forecast.report(run::Stage::write, "", 5, 5, seconds(70));
  EXPECT_NEAR(forecast.fraction(), 1, 1e-9);
}

TEST(Forecast, TheNextRunIsToldByTheLast) {
  using std::chrono::seconds;
  const auto run = [](app::RunForecast& forecast) {
    forecast.report(run::Stage::convert, "/a.mov", 1, 1, seconds(10));
    const auto left = forecast.left(seconds(10));
    forecast.report(run::Stage::fingerprint, "/a.mov", 1, 1, seconds(20));
    forecast.report(run::Stage::compare, "", 1, 1, seconds(20));
    forecast.report(run::Stage::place, "", 1, 1, seconds(50));
    return left ? left->count() : 0;
  };
  app::RunForecast first({{"/a.mov", 1000}}, app::kFirstPace);
  run(first);
  app::RunForecast second({{"/a.mov", 1000}}, first.learned(seconds(60)));
  EXPECT_NEAR(run(second), 50, 2);
  app::RunForecast heard({{"/a.mov", 1000}, {"/b.mov", 3000}}, first.learned(seconds(60)));
  heard.report(run::Stage::convert, "/a.mov", 1, 1, seconds(10));
  EXPECT_NEAR(heard.left(seconds(10))->count(), 200, 5) << "three quarters were heard before";
  EXPECT_EQ(heard.learned(seconds(20))[0], first.learned(seconds(60))[0])
      << "what was kept tells nothing of converting";
}

TEST(WindowPlace, AlwaysWithinTheScreen) {
  const QRect screen(0, 30, 960, 500);  // 1080 lines at 200 %
  EXPECT_TRUE(screen.contains(app::placeWithin(screen, {}, {1280, 800})));
  EXPECT_TRUE(screen.contains(app::placeWithin(screen, {-500, 4000, 800, 400}, {1280, 800})));
  EXPECT_EQ(app::placeWithin(screen, {10, 40, 800, 400}, {1280, 800}), QRect(10, 40, 800, 400));
}

TEST(Clock, TextAndRulerSteps) {
  struct Case {
    double seconds;
    int decimals;
    const char* text;
  };
  const Case cases[] = {{0, 0, "0:00:00"},
                        {59.6, 0, "0:01:00"},
                        {3725.5, 3, "1:02:05.500"},
                        {0.0004, 3, "0:00:00.000"},
                        {35999.9996, 3, "10:00:00.000"}};
  for (const auto& [seconds, decimals, text] : cases) {
    EXPECT_EQ(app::clockText(seconds, decimals), text);
  }
  for (double scale = 0.001; scale < 500; scale *= 1.7) {
    EXPECT_GE(app::TimeScale::step(scale, 90) * scale, scale > 0.004 ? 90 : 20);
  }
}

}  // namespace
