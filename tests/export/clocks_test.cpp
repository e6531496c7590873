#include "export/clocks.h"

#include <gtest/gtest.h>

#include <cmath>

#include "export/lanes.h"
#include "export/media.h"
#include "export/reaper.h"
#include "tests/export/reader.h"
#include "tests/export/sample.h"

namespace {

using namespace timeline;

/// A device that was switched on at `on` true seconds, and how fast its clock runs.
struct Truth {
  double on, length, ppm;
  bool picture;
};

/// Where the clips were found: the first as the others hear it in the middle of what they share.
Project foundAs(const std::vector<Truth>& truths, bool told) {
  Project project;
  project.groups = {{"Group 1", {}}};
  const Truth& first = truths.front();
  for (const Truth& truth : truths) {
    const int index = static_cast<int>(project.media.size());
    const std::string path = "/" + std::to_string(index) + ".wav";
    const double rate = 1 + truth.ppm * 1e-6, firstRate = 1 + first.ppm * 1e-6;
    const double length = truth.length * rate;
    project.media.push_back(truth.picture ? sample::camera(path, length)
                                          : sample::recorder(path, length));
    const double middle = (std::max(truth.on, first.on) +
                           std::min(truth.on + truth.length, first.on + first.length)) /
                          2;
    Clip clip{index, (middle - first.on) * firstRate - (middle - truth.on) * rate, 0.9};
    clip.driftPpm = truth.ppm;
    if (told) clip.oneClockStart = truth.on - first.on;
    project.groups[0].clips.push_back(clip);
  }
  return project;
}

/// The largest distance between what is heard at the same true moment, over all clips' ends.
double worst(const std::vector<Truth>& truths, const std::vector<OneClock>& clocks,
             double groupPpm) {
  double most = 0;
  const double origin = clocks[0].startSeconds - truths[0].on * (1 + groupPpm * 1e-6);
  for (std::size_t i = 0; i < truths.size(); ++i)
    for (const double moment : {0.0, truths[i].length}) {
      const double file = moment * (1 + truths[i].ppm * 1e-6);
      const double at = clocks[i].startSeconds + file / clocks[i].playRate;
      most =
          std::max(most, std::abs(at - origin - (truths[i].on + moment) * (1 + groupPpm * 1e-6)));
    }
  return most;
}

TEST(Clocks, ARecorderIsBroughtToTheCamerasClock) {
  const std::vector<Truth> truths{{0, 5400, 50, false}, {900, 3600, 0, true}};
  const Project project = foundAs(truths, false);
  const auto clocks = byOneClock(project, project.groups[0]);
  EXPECT_LT(worst(truths, clocks, 0), 1e-4);
  // as it was, 90 ms were left at both ends of the overlap, more at the recorder's own
  EXPECT_GT(clocks[0].worstError(5400), 0.09);
  EXPECT_EQ(clocks[1].worstError(3600), 0);
}

TEST(Clocks, WithSeveralCamerasTheSoundTellsWhereEachBelongs) {
  const std::vector<Truth> truths{
      {0, 5400, 50, false}, {10, 3600, 0, true}, {1800, 3500, 20, true}, {4000, 1000, -15, true}};
  const Project project = foundAs(truths, true);
  EXPECT_LT(worst(truths, byOneClock(project, project.groups[0]), 0), 1e-4);
}

TEST(Clocks, TellHowFarAClipStaysOutAsItStands) {
  const OneClock clock{10, 1 + 100e-6, 500};
  const Clip whole{0, clock.uncorrectedStart()};
  EXPECT_NEAR(clock.worstError(whole, 1000), 0.05, 1e-5);
  EXPECT_NEAR(clock.worstError(whole, 1000), clock.worstError(1000), 1e-9);
  EXPECT_NEAR(clock.worstError({0, 10}, 1000), 0.1, 1e-5) << "right at its start alone";
  Clip piece{0, 10 + 800 / clock.playRate + 0.003};
  piece.sourceSeconds = 800;
  piece.lengthSeconds = 20;
  EXPECT_NEAR(clock.worstError(piece, 1000), 0.005, 1e-5);
  // what moves all clips alike is no error
  const Group group{"", {{0, 7 + 3}, {1, clock.uncorrectedStart() + 3}}};
  EXPECT_NEAR(standsLater(group, {{7, 1, 100}, clock}), 3, 1e-9);
}

TEST(Clocks, PiecesAreNowhereFartherOutThanHalfAFrame) {
  const FrameRate rate{25, 1};
  for (const double ppm : {80.0, -80.0, 20.0})
    for (const double phase : {0.0, 0.013}) {
      const OneClock clock{3.0171, 1 + ppm * 1e-6, 1800};
      const double length = 3600;
      const auto pieces =
          inPieces({0, 3.0}, clock, length, rate, phase, [](double at) { return at + 1.3; });
      double source = 0, at = -1;
      for (const Clip& piece : pieces) {
        if (at >= 0) {
          EXPECT_NEAR(piece.startSeconds, at, 1e-9) << "a gap or an overlap";
        }
        EXPECT_GE(piece.sourceSeconds, source);
        for (const double moment : {0.0, piece.lengthSeconds - 0.04}) {
          const double belongs =
              clock.startSeconds + (piece.sourceSeconds + moment) / clock.playRate;
          EXPECT_LE(std::abs(piece.startSeconds + moment - belongs), 0.0202);
        }
        source = piece.sourceSeconds;
        at = piece.startSeconds + piece.lengthSeconds;
      }
      EXPECT_NEAR(double(pieces.size()), 1 + 3600 * std::abs(ppm) * 1e-6 * 25, 1.01);
      EXPECT_NEAR(at, clock.startSeconds + length / clock.playRate, 0.06);
    }
}

TEST(Clocks, ReaperPlaysACameraWholeWhereOthersHavePieces) {
  Project project;
  project.media = {sample::camera("/a.mov", 3600), sample::camera("/b.mov", 3600)};
  const OneClock clock{7.25, 1 + 80e-6, 1800};
  Clip drifting{1, clock.uncorrectedStart()};
  drifting.steady = Steady{clock.startSeconds, clock.playRate};
  Group group{"Group 1", {{0, 0}}};
  for (const Clip& piece :
       inPieces(drifting, clock, 3600, {25, 1}, 0, [](double at) { return at; }))
    group.clips.push_back(piece);
  ASSERT_GT(group.clips.size(), 3u);
  const std::string text = reaperProject(project, group);
  const auto items = reader::reaper(text);
  ASSERT_EQ(items.size(), 2u);
  EXPECT_NEAR(items[1].soundAt, 7.25, 1e-9);
  EXPECT_NE(text.find("PLAYRATE 1.000080000000"), std::string::npos);
  EXPECT_NE(text.find("LENGTH 3599.712"), std::string::npos);
}

}  // namespace
