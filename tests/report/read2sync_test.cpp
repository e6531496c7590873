#include "report/read2sync.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <initializer_list>
#include <string>

#include "report/summary.h"
#include "tests/report/shown_path.h"

namespace {

report::Outcome weddingOutcome() {
  report::Outcome outcome;
  report::Member recorder;
  recorder.path = "/rec/take.wav";
  recorder.durationSeconds = 3725.5;
  recorder.confidence = 1;
  recorder.device = 1;
  report::Member camera;
  camera.path = "/cam b/C01.MP4";
  camera.offsetSeconds = 61.2345;
  camera.durationSeconds = 1000;
  camera.confidence = 0.934;
  camera.device = 2;
  camera.errorSeconds = 0.00042;
  camera.driftPpm = -12.34;
  camera.leftOutOfSync = 0.0062;
  camera.matchedWith = {"/rec/take.wav"};
  outcome.groups = {{"Group 1", {recorder, camera}}};
  outcome.unsynced = {{"/cam a/C01.MP4", "Nothing else heard this.", "Try the slow speed."}};
  outcome.ignored = {{"notes\n.txt", "No sound.", ""}};
  return outcome;
}

TEST(SummaryText, TellsPlacesThenWhatStandsAloneThenWhatWasIgnored) {
  EXPECT_EQ(
      report::summaryText(weddingOutcome()),
      shownPath(
          "Synchronised 2 of 4 files in 1 group.\n\n"
          "Group 1: 2 recordings of 2 devices, 1:02:05.500 long\n"
          "  Recording      Device     Position       Length  Confidence  Exact to  Clock drift"
          "  leaves\n"
          "  take.wav            1  0:00:00.000  1:02:05.500       100 %\n"
          "  cam b/C01.MP4       2  0:01:01.235  0:16:40.000        93 %    0.4 ms    -12.3 ppm"
          "  6.2 ms\n\n"
          "Standing alone: nothing matches them surely enough\n"
          "  cam a/C01.MP4\n"
          "      Nothing else heard this.\n"
          "      Try the slow speed.\n\n"
          "Ignored: could not be used\n"
          "  notes?.txt\n"
          "      No sound.\n"));
}

TEST(SummaryText, UnmeasuredColumnsAreLeftOutAndNoGroupIsSaid) {
  report::Outcome outcome = weddingOutcome();
  outcome.groups[0].members.pop_back();
  EXPECT_EQ(report::summaryText(outcome).find("drift"), std::string::npos);
  EXPECT_TRUE(report::summaryText({}).starts_with("Nothing was synchronised."));
}

TEST(SummaryText, TellsWhatStandsByTheClockOrByHand) {
  report::Outcome outcome = weddingOutcome();
  outcome.groups[0].members[0].placedBy = report::PlacedBy::hand;
  report::Member& camera = outcome.groups[0].members[1];
  camera.placedBy = report::PlacedBy::clock;
  camera.errorSeconds = 2;
  camera.driftPpm.reset();
  const std::string text = report::summaryText(outcome);
  EXPECT_NE(text.find("1:02:05.500       by hand"), std::string::npos) << text;
  EXPECT_NE(text.find("by the clock       2 s"), std::string::npos) << text;
}

TEST(Read2SyncPage, NamesMatchesSettingsAndAdvice) {
  report::Outcome outcome = weddingOutcome();
  outcome.outputs = {"/home/ann/Desktop/SYNCED/SYNCED_fcp--10-00-00--.XML"};
  const report::RunSettings settings{
      .tolerance = 0.985, .mode = 1, .framesPerSecond = 23.976, .width = 1280, .height = 720};
  const std::string page = report::read2syncPage(outcome, settings);
  for (const std::string& text : std::initializer_list<std::string>{
           shownPath("cam b/C01.MP4  with  take.wav\n"), "1280 x 720, 23.976 frames",
           "Tolerance   0.985", "What to try", shownPath(outcome.outputs.front() + '\n')})
    EXPECT_NE(page.find(text), std::string::npos) << text;
}

TEST(TempResultsLine, HasAsManyColumnsAsItsHeading) {
  report::ComparedPair pair;
  pair.first = "a.wav";
  pair.second = "b\tc.mov";
  pair.offsetSeconds = -1.25;
  pair.confidence = 0.5;
  pair.hits = 340;
  pair.sections = 7;
  pair.verdict = report::ComparedPair::Verdict::strict;
  EXPECT_EQ(report::tempResultsLine(pair),
            "a.wav\tb?c.mov\t-1.250\t0.500\t340\t7\taccepted by the strict test");
  const std::string heading = report::tempResultsHeading();
  const std::string unmatched = report::tempResultsLine(report::ComparedPair{});
  EXPECT_EQ(std::ranges::count(heading, '\t'), std::ranges::count(unmatched, '\t'));
}

}  // namespace
