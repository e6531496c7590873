#include <gtest/gtest.h>
#include <sndfile.h>

#include <QTemporaryDir>
#include <QTest>
#include <cmath>

#include "app/clock_text.h"
#include "app/result_model.h"
#include "app/waveform.h"
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

run::Member member(const std::string& path, int device, double offset, double seconds) {
  run::Member m;
  m.path = path;
  m.device = device;
  m.offsetSeconds = offset;
  m.durationSeconds = seconds;
  m.confidence = 0.98;
  return m;
}

run::Outcome sampleOutcome() {
  run::Outcome outcome;
  outcome.groups = {{"Group 1",
                     {member("/card 1/CamA_01.mov", 4, 0, 10), member("/b/zoom.wav", 2, 2.5, 100),
                      member("/card 1/CamA_02.mov", 4, 12, 10)}}};
  outcome.unsynced = {{"/c/alone.wav", "reason", "remedy"}};
  outcome.ignored = {{"/c/broken.mp4", "why", "what to do"}};
  outcome.outputs = {"/d/SYNCED/SYNCED_fcp--14-05-09--.XML", "/d/SYNCED/READ2SYNC.txt",
                     "/d/SYNCED/VEGAS_SEQUENCES/group1.edl"};
  return outcome;
}

TEST(Timeline, OneLanePerDevice) {
  app::ResultModel result;
  result.show(sampleOutcome());
  app::TimelineModel* timeline = result.timeline(0);
  ASSERT_NE(timeline, nullptr);
  EXPECT_EQ(timeline->lanes(), QStringList({"card 1", "zoom"})) << "a folder of their own";
  EXPECT_EQ(timeline->lengthSeconds(), 102.5);
  const auto lane = [&](int row) {
    return timeline->data(timeline->index(row), app::TimelineModel::LaneRole).toInt();
  };
  EXPECT_EQ(lane(0), 0);
  EXPECT_EQ(lane(1), 1);
  EXPECT_EQ(lane(2), 0);
  const QString detail =
      timeline->data(timeline->index(1), app::TimelineModel::DetailRole).toString();
  for (const char* part : {"/b/zoom.wav", "0:00:02.500", "0:01:40.000", "98 %"}) {
    EXPECT_TRUE(detail.contains(part)) << part;
  }
}

TEST(Timeline, LanesOfOneFolderAreKnownByTheirNames) {
  run::Outcome outcome = sampleOutcome();
  outcome.groups[0].members = {member("/a/CamA_01.mov", 1, 0, 1), member("/a/CamA_02.mov", 1, 2, 1),
                               member("/a/1.mov", 2, 0, 1), member("/a/2.mov", 2, 2, 1)};
  app::ResultModel result;
  result.show(outcome);
  EXPECT_EQ(result.timeline(0)->lanes(), QStringList({"CamA", "Device 2"}));
}

TEST(Timeline, WaveformsArriveInTheBackground) {
  const QTemporaryDir folder;
  run::Outcome outcome = sampleOutcome();
  outcome.groups[0].members[1].soundPath = writeSound(folder);
  app::ResultModel result;
  result.show(outcome);
  const auto waveform = [&] {
    const app::TimelineModel* timeline = result.timeline(0);
    return timeline->data(timeline->index(1), app::TimelineModel::WaveformRole)
        .value<app::Waveform>();
  };
  EXPECT_TRUE(QTest::qWaitFor([&] { return waveform().peaks.size() == 200; }));
  result.show({});  // while others may still be read
  EXPECT_EQ(result.timeline(0), nullptr);
}

TEST(Result, SaysWhatWasLeftOutAndWritten) {
  app::ResultModel result;
  result.show(sampleOutcome());
  EXPECT_EQ(result.summary(), "3 of 5 recordings synchronised in one group");
  EXPECT_EQ(result.leftOutCount(), 2);
  EXPECT_EQ(result.documents()->rowCount(), 2) << "the texts of a run are no timelines";
  result.show({});
  EXPECT_EQ(result.summary(), "No two recordings matched.");
  EXPECT_EQ(result.documents()->rowCount(), 0);
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
