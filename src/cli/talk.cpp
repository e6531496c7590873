#include "cli/talk.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>

#include "cli/align.h"
#include "cli/result_json.h"
#include "report/disk.h"
#include "report/files.h"
#include "report/profile.h"
#include "report/summary.h"
#include "report/text.h"

namespace cli {
namespace {

std::string outputsText(const report::Outcome& outcome) {
  std::string text;
  if (!outcome.outputs.empty()) text += "\nDocuments\n";
  for (const std::string& path : outcome.outputs)
    text += "  " + report::printable(report::nativeSlashes(path)) + '\n';
  if (!outcome.project.empty())
    text += "\nProject\n  " + report::printable(report::nativeSlashes(outcome.project)) + '\n';
  return text;
}

}  // namespace

void say(const std::string& line) { std::fputs((report::printable(line) + "\n").c_str(), stderr); }

int fail(const std::string& problem) {
  say("kestrel-align: " + problem);
  return kFailed;
}

void tellNotices(const report::Outcome& outcome, bool quiet) {
  const auto failed = [&](const std::string& notice) {
    return std::ranges::find(outcome.failures, notice) != outcome.failures.end();
  };
  for (const std::string& notice : outcome.notices)
    if (!quiet && !failed(notice)) say("Note: " + notice);
  for (const std::string& failure : outcome.failures) say("kestrel-align: " + failure);
}

report::Status showOutcome(const report::Outcome& outcome, const std::string& jsonFile) {
  const std::string json = jsonFile.empty() ? "" : resultJson(outcome);
  const std::string text =
      jsonFile == "-" ? json : report::summaryText(outcome) + outputsText(outcome);
  const bool shown = std::fwrite(text.data(), 1, text.size(), stdout) == text.size();
  if (std::fflush(stdout) != 0 || !shown)
    return {std::string("The result cannot be shown: ") + std::strerror(errno)};
  if (jsonFile.empty() || jsonFile == "-") return {};
  return report::writeWhole(report::fromUtf8(jsonFile), json);
}

std::string wholeFilePath(const std::string& name) {
  return name.empty() || name == "-" ? name : report::wholePath(name);
}

}  // namespace cli
