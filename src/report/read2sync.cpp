#include "report/read2sync.h"

#include "report/profile.h"
#include "report/summary.h"
#include "report/text.h"

namespace report {
namespace {

std::string settingsText(const RunSettings& settings) {
  const std::string rate = shortestText(settings.framesPerSecond);
  return "Settings\n  Tolerance   " + shortestText(settings.tolerance) + "\n  Mode        " +
         std::to_string(settings.mode) + "\n  Sequence    " + std::to_string(settings.width) +
         " x " + std::to_string(settings.height) + ", " + rate + " frames per second" +
         "\n  Placed by   " +
         (settings.placedBySound ? "the sound itself" : "the vote of the accepted pairs alone") +
         "\n\n";
}

std::string listText(std::string_view heading, const std::vector<std::string>& lines) {
  if (lines.empty()) return {};
  std::string text = std::string(heading) + '\n';
  for (const std::string& line : lines) text += "  " + printable(line) + '\n';
  return text + '\n';
}

std::string_view verdictText(ComparedPair::Verdict verdict) {
  switch (verdict) {
    case ComparedPair::Verdict::strict:
      return "accepted by the strict test";
    case ComparedPair::Verdict::music:
      return "accepted by the test for mode 1";
    case ComparedPair::Verdict::none:
      break;
  }
  return "not accepted";
}

constexpr std::string_view kHowToRead =
    "How to read the tables\n"
    "  Position    where the recording starts, counted from the start of its group's first one\n"
    "  Confidence  of the recordings given 90 %, about nine in ten stand at the right place; "
    "others\n"
    "              stand where somebody put them, or where their device's clock says, to about 2 "
    "s\n"
    "  Exact to    the estimated error of the position; empty where it was not measured\n"
    "  Drift       how much faster the device's clock runs than the group's, in millionths, and\n"
    "              how far that leaves the worst moment of the recording from its place in the\n"
    "              documents: where its sound was written anew or it was cut into pieces, next to\n"
    "              nothing\n\n";

constexpr std::string_view kWhatToTry =
    "What to try for files that stand alone\n"
    "  1. Use the slow speed: it listens more closely.\n"
    "  2. Give the files of each camera or recorder as one device; fewer pairs are compared then\n"
    "     and files of one device are never mistaken for one another.\n"
    "  3. Add a recording that ran all the time, such as a sound recorder: it joins clips that do\n"
    "     not overlap each other.\n"
    "  4. Listen to the file: it needs a few seconds of the sound that the others recorded "
    "too.\n\n";

}  // namespace

std::string read2syncPage(const Outcome& outcome, const RunSettings& settings) {
  std::string text = "What was synchronised\n=====================\n\n";
  text += summaryText(outcome) + '\n';
  if (!outcome.groups.empty()) text += kHowToRead;
  const std::string matches = matchesText(outcome);
  if (!matches.empty()) text += "Matched\n" + matches + '\n';
  if (!outcome.unsynced.empty()) text += kWhatToTry;
  text += listText("Please note", outcome.notices);
  std::vector<std::string> documents;
  for (const std::string& path : outcome.outputs) documents.push_back(nativeSlashes(path));
  text += listText("Documents", documents);
  text += settingsText(settings);
  text.pop_back();  // the empty line after the last part
  return text;
}

std::string tempResultsHeading() {
  return "first\tsecond\toffset in s\tconfidence\thits\tsections\tverdict";
}

std::string tempResultsLine(const ComparedPair& pair) {
  const std::string offset = pair.offsetSeconds ? decimalText(*pair.offsetSeconds, 3) : "-";
  return printable(pair.first) + '\t' + printable(pair.second) + '\t' + offset + '\t' +
         decimalText(pair.confidence, 3) + '\t' + std::to_string(pair.hits) + '\t' +
         std::to_string(pair.sections) + '\t' + std::string(verdictText(pair.verdict));
}

}  // namespace report
