#include <gtest/gtest.h>
#include <sndfile.h>

#include <QTemporaryDir>
#include <cmath>
#include <numbers>
#include <vector>

#include "app/listen/player.h"
#include "project/edit.h"

namespace {

using app::kHeardRate;

constexpr int kSoundRate = 8000;

/// A tone that grows, so that no two stretches of it are alike.
float toneAt(std::int64_t sample) {
  const double t = double(sample) / kSoundRate;
  return static_cast<float>(0.05 * t * std::sin(2 * std::numbers::pi * 310 * t));
}

std::string writeTone(const QTemporaryDir& folder, const char* name, int seconds) {
  const std::string path = folder.filePath(name).toStdString();
  SF_INFO info = {0, kSoundRate, 1, SF_FORMAT_WAV | SF_FORMAT_FLOAT, 0, 0};
  SNDFILE* file = sf_open(path.c_str(), SFM_WRITE, &info);
  std::vector<float> samples;
  for (int i = 0; i < seconds * kSoundRate; ++i) samples.push_back(toneAt(i));
  sf_write_float(file, samples.data(), std::ssize(samples));
  sf_close(file);
  return path;
}

/// Plays into memory, as much as it is told to.
class NullOutput final : public app::AudioOutput {
 public:
  static NullOutput*& last() {
    static NullOutput* output = nullptr;
    return output;
  }
  NullOutput() { last() = this; }
  bool start(Fill fill) override {
    fill_ = std::move(fill);
    heard_ = 0;
    return true;
  }
  void stop() override { fill_ = {}; }
  std::int64_t framesHeard() const override { return heard_; }

  std::vector<float> pull(int frames) {
    std::vector<float> stereo(static_cast<std::size_t>(2 * frames));
    fill_(stereo);
    heard_ += frames;
    return stereo;
  }

 private:
  Fill fill_;
  std::int64_t heard_ = 0;
};

/// Two recordings of a group, the second one five seconds after the first.
class Listening : public testing::Test {
 protected:
  void SetUp() override {
    app::Player::setOutput([] { return std::make_unique<NullOutput>(); });
    for (const int id : {1, 2}) {
      const std::string path = "/m/" + std::to_string(id) + ".mov";
      sounds_[path] = writeTone(folder_, id == 1 ? "a.wav" : "b.wav", 10);
      project::Recording recording;
      recording.id = 10 + id;
      recording.files.emplace_back().path = path;
      recording.lengthSeconds = 10;
      project_.devices.push_back({id, "Device " + std::to_string(id), {}, {recording}, {}});
      project::Clip clip;
      clip.recording = recording.id;
      clip.startSeconds = 5 * (id - 1);
      group_.clips.push_back(clip);
    }
    group_.id = 20;
    project_.groups = {group_};
    show();
    player_.setTimeline(&timeline_);
  }
  void TearDown() override { app::Player::setOutput(app::systemAudio); }
  void show() { timeline_.show(project_, project_.groups.front(), sounds_); }
  std::vector<float> playFrom(double seconds, int frames) {
    if (player_.playing()) player_.stop();
    player_.setPosition(seconds);
    player_.toggle();
    std::vector<float> heard = NullOutput::last()->pull(frames);
    player_.stop();
    return heard;
  }

  QTemporaryDir folder_;
  project::Project project_;
  project::Group group_;
  app::SoundPaths sounds_;
  app::TimelineModel timeline_;
  app::Player player_;
};

TEST_F(Listening, EveryClipIsHeardAtItsPlaceToTheSample) {
  // two clips at once: each at the root of a half
  const std::vector<float> heard = playFrom(7, kHeardRate / 10);
  const float strength = std::sqrt(0.5f);
  for (int i = 0; i < kHeardRate / 10; i += 6) {  // where samples of 8000 and of 48000 Hz meet
    const float expected =
        strength * (toneAt(7 * kSoundRate + i / 6) + toneAt(2 * kSoundRate + i / 6));
    ASSERT_NEAR(heard[2 * i], expected, 1e-6) << i;
    ASSERT_EQ(heard[2 * i], heard[2 * i + 1]);
  }
}

TEST_F(Listening, ANudgeByAMillisecondMovesTheMixByOne) {
  player_.toggleSolo(1);
  const std::vector<float> before = playFrom(7, kHeardRate);
  const std::vector<project::Id> second = {12};
  project_ = project::moveClips(project_, second, 0.001);
  show();
  const std::vector<float> after = playFrom(7, kHeardRate);
  constexpr int kMillisecond = kHeardRate / 1000;
  double most = 0, unmoved = 0;
  for (int i = 0; i < kHeardRate - kMillisecond; ++i) {
    most = std::max<double>(most, std::abs(after[2 * (i + kMillisecond)] - before[2 * i]));
    unmoved = std::max<double>(unmoved, std::abs(after[2 * i] - before[2 * i]));
  }
  EXPECT_LT(most, 1e-5);
  EXPECT_GT(unmoved, 0.05);
}

TEST_F(Listening, APairIsHeardOnEitherSide) {
  player_.setPair(0, 1);
  const std::vector<float> heard = playFrom(7, 600);
  for (int i = 0; i < 600; i += 6) {
    EXPECT_NEAR(heard[2 * i], toneAt(7 * kSoundRate + i / 6), 1e-6);
    EXPECT_NEAR(heard[2 * i + 1], toneAt(2 * kSoundRate + i / 6), 1e-6);
  }
}

TEST_F(Listening, SoloAndMuteChooseLanes) {
  player_.toggleMute(0);
  EXPECT_EQ(playFrom(1, 600)[301], 0);
  player_.toggleMute(0);
  player_.toggleSolo(1);
  EXPECT_EQ(playFrom(1, 600)[301], 0);
  player_.toggleSolo(0);
  EXPECT_NE(playFrom(1, 600)[301], 0);
}

TEST_F(Listening, ALoopComesAroundWithoutAGap) {
  player_.setLoop(6, 6.1);
  const std::vector<float> heard = playFrom(6, kHeardRate / 4);
  constexpr int kRound = kHeardRate / 10;
  for (int i = 0; i < kRound; ++i) ASSERT_EQ(heard[2 * i], heard[2 * (i + kRound)]) << i;
  EXPECT_NEAR(player_.position(), 6.05, 1e-9) << "two rounds and a half";
}

TEST_F(Listening, WithoutADeviceItSaysSoAndTheRestGoesOn) {
  class Silent final : public app::AudioOutput {
    bool start(Fill) override { return false; }
    void stop() override {}
    std::int64_t framesHeard() const override { return 0; }
  };
  app::Player::setOutput([] { return std::make_unique<Silent>(); });
  app::Player player;
  player.setTimeline(&timeline_);
  player.toggle();
  EXPECT_FALSE(player.playing());
  EXPECT_FALSE(player.problem().isEmpty());
  player.setPosition(3);
  EXPECT_EQ(player.position(), 3);
}

}  // namespace
