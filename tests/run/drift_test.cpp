#include <cmath>

#include "tests/run/drifting.h"
#include "tests/run/event.h"

namespace {

constexpr double kFrame = 1.0 / 60;
constexpr double kPpm = 100, kMillionth = 1e-6;

const run::Member& member(const Event& event, const std::string& path) {
  for (const run::Group& group : event.outcome.groups)
    for (const run::Member& member : group.members)
      if (member.path == path) return member;
  throw std::runtime_error(path + " stands nowhere");
}

/// Two cameras and a recorder for five minutes: the first camera is the clock.
class Drift : public testing::Test {
 protected:
  Drift() {
    const auto sound = eventWithPauses(330);
    steady_ = event_.clip("A.mov", heardBy(sound, 2, 328, 0));
    drifting_ = event_.clip("B.mov", heardBy(sound, 10, 318, kPpm));
    recorder_ = event_.sound("R.wav", heardBy(sound, 0.5, 325, -kPpm * 0.4));
    event_.options.formats = {"otio"};
    event_.framesPerSecond = 60;
  }

  void run(const std::string& drift) {
    event_.options.drift = drift;
    event_.run({steady_, drifting_, recorder_});
    ASSERT_EQ(event_.outcome.groups.size(), 1u);
    document_ = readWhole(event_.results() / "SYNCED--14-05-09--.otio");
  }

  Event event_;
  std::string steady_, drifting_, recorder_;
  std::string document_;
};

TEST_F(Drift, PiecesStandWithinHalfAFrameAndAreCutInPauses) {
  run("pieces");
  const auto first = piecesOf(document_, "Video", "A.mov"),
             pieces = piecesOf(document_, "Video", "B.mov");
  ASSERT_EQ(first.size(), 1u);
  ASSERT_GE(pieces.size(), 2u);  // 31 ms are nearly two frames
  ASSERT_LE(pieces.size(), 3u);
  double end = pieces.front().at;
  for (const Piece& piece : pieces) {
    EXPECT_NEAR(piece.at, end, 1e-6) << "a gap or an overlap";
    end = piece.at + piece.length;
    for (const double moment : {0.0, piece.length}) {
      const double belongs = (10 - 2) + (piece.in + moment) / (1 + kPpm * kMillionth);
      // cameras stand on frames, each half a frame from its place at most
      EXPECT_NEAR(piece.at - first.front().at + moment, belongs, kFrame + 0.001) << piece.in;
    }
    if (piece.in == 0) continue;
    const double inPause = std::fmod(10 + piece.in / (1 + kPpm * kMillionth), 3.0);
    EXPECT_LT(inPause, 0.3 + kFrame / 2) << "cut in the middle of a word";
  }
  EXPECT_TRUE(event_.noticed("The clock of 1 camera clip drifts, so it was cut into pieces"));
  ASSERT_TRUE(member(event_, drifting_).driftPpm);
  EXPECT_NEAR(*member(event_, drifting_).driftPpm, kPpm, 1);
  EXPECT_LE(*member(event_, drifting_).leftOutOfSync, kFrame / 2 + 0.001);
  EXPECT_GE(*member(event_, drifting_).leftOutOfSync, kFrame / 4);
  EXPECT_LT(*member(event_, recorder_).leftOutOfSync, 1e-6);
}

TEST_F(Drift, ReportsTellWhatTheDocumentsLeave) {
  run("off");
  ASSERT_TRUE(member(event_, drifting_).leftOutOfSync && member(event_, recorder_).leftOutOfSync);
  EXPECT_NEAR(*member(event_, drifting_).leftOutOfSync, kPpm * kMillionth * 154, 0.002);
  EXPECT_NEAR(*member(event_, recorder_).leftOutOfSync, kPpm * 0.4 * kMillionth * 163, 0.002);
  EXPECT_FALSE(std::filesystem::exists(event_.results() / "sound"));
  run("sound");
  EXPECT_NEAR(*member(event_, drifting_).leftOutOfSync, kPpm * kMillionth * 154, 0.002);
  EXPECT_LT(*member(event_, recorder_).leftOutOfSync, 1e-6);
  EXPECT_NEAR(member(event_, recorder_).offsetSeconds, 0, 1e-9);
  EXPECT_NEAR(member(event_, steady_).offsetSeconds, 1.5, 0.002);
  // heard again, the new sound has the camera's clock and stands where the documents have it
  const double before = member(event_, steady_).offsetSeconds;
  const std::string anew = report::toUtf8(event_.results() / "sound/R.wav");
  ASSERT_TRUE(std::filesystem::exists(report::fromUtf8(anew)));
  const std::string copy = event_.media("anew.wav");
  std::filesystem::copy_file(report::fromUtf8(anew), report::fromUtf8(copy));
  event_.options.drift = "off";
  event_.run({steady_, copy});
  EXPECT_NEAR(*member(event_, copy).driftPpm, 0, 1);
  EXPECT_NEAR(member(event_, steady_).offsetSeconds, before, 0.002);
}

}  // namespace
