#include "cli/align.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <functional>

#include "cli/inputs.h"
#include "cli/interrupt.h"
#include "cli/progress_line.h"
#include "cli/result_json.h"
#include "cli/terminal.h"
#include "report/disk.h"
#include "report/files.h"
#include "report/profile.h"
#include "report/run_report.h"
#include "report/summary.h"
#include "report/text.h"
#include "run/entries.h"
#include "run/own_folder.h"
#include "run/system_services.h"

namespace cli {
namespace {

constexpr char kNoMedia[] = "No media file was found; give media files or a folder that holds them";

void say(const std::string& line) { std::fputs((report::printable(line) + "\n").c_str(), stderr); }

int fail(const std::string& problem) {
  say("kestrel-align: " + problem);
  return kFailed;
}

/// Shows the diagnostic lines beside the result, never in it.
class ErrorConsole final : public report::Console {
 public:
  void line(std::string_view text) override { say(std::string(text)); }
};

void useProfile(const std::string& folder) {
  if (folder.empty()) return;
  std::string text = report::wholePath(folder);
  if (text.size() > 1 && text.ends_with('/')) text.pop_back();
  report::useProfileFolder(text);
}

/// The outcome, and what the end-of-run report is made from.
struct Finished {
  report::Outcome outcome;
  std::vector<std::string> result;
};

run::Options optionsOf(const Arguments& arguments) {
  run::Options options;
  options.align = arguments.align;
  options.openFolders = arguments.open;
  options.compactXmeml = arguments.compactXmeml;
  options.formats = arguments.formats;
  if (!arguments.drift.empty()) options.drift = arguments.drift;
  if (arguments.replaceAudio) options.replaceAudio = true;
  if (arguments.cameraSound) options.cameraSound = true;
  return options;
}

Finished synchronise(const Arguments& arguments, const std::vector<std::string>& entries,
                     run::SystemServices& system, report::Console& console) {
  const bool showProgress = !arguments.quiet && !arguments.verbose;
  ProgressLine progress(stderr, [=] { return showProgress ? errorTerminalColumns() : 0; });
  run::SyncRun run(system.with(console, progress, interrupted()),
                   optionsOf(arguments));
  Finished finished;
  finished.result = run.synco(entries, arguments.tolerance, arguments.width, arguments.height,
                              static_cast<float>(arguments.framesPerSecond), arguments.mode);
  finished.outcome = run.outcome();
  return finished;
}

void writeProblems(const Arguments& arguments, Finished& finished, run::SystemServices& system,
                   report::Console& console) {
  std::function<void(const std::string&)> execute;
  if (arguments.open) execute = [&](const std::string& line) { system.desktop().command(line); };
  const report::Status written = report::reportRun(finished.result, console, execute);
  if (!written.ok())
    run::addFailure("A file was not written: " + written.error + ".", finished.outcome);
}

/// What is worth knowing beside the failures.
std::vector<std::string> notesOf(const report::Outcome& outcome) {
  std::vector<std::string> notes = outcome.notices;
  std::erase_if(notes, [&](const std::string& note) {
    return std::ranges::find(outcome.failures, note) != outcome.failures.end();
  });
  return notes;
}

std::string outputsText(const report::Outcome& outcome) {
  if (outcome.outputs.empty()) return {};
  std::string text = "\nDocuments\n";
  for (const std::string& path : outcome.outputs) text += "  " + report::printable(report::nativeSlashes(path)) + '\n';
  return text;
}

/// Standard output holds the table or, where asked for, the JSON alone.
report::Status show(const report::Outcome& outcome, const std::string& jsonFile) {
  const std::string json = jsonFile.empty() ? "" : resultJson(outcome);
  const std::string text =
      jsonFile == "-" ? json : report::summaryText(outcome) + outputsText(outcome);
  const bool shown = std::fwrite(text.data(), 1, text.size(), stdout) == text.size();
  if (std::fflush(stdout) != 0 || !shown)
    return {std::string("The result cannot be shown: ") + std::strerror(errno)};
  if (jsonFile.empty() || jsonFile == "-") return {};
  return report::writeWhole(report::fromUtf8(jsonFile), json);
}

int exitStatus(const report::Outcome& outcome) {
  if (outcome.cancelled) return kInterrupted;
  if (!outcome.failures.empty()) return kFailed;
  if (!outcome.groups.empty()) return kSynchronised;
  return outcome.unsynced.empty() ? kFailed : kNothingMatched;  // failed: not one could be heard
}

bool holdsFile(const std::vector<std::string>& entries) {
  return !std::ranges::all_of(entries, run::isMarker);
}

}  // namespace

int align(const Arguments& arguments) {
  useProfile(arguments.profile);
  if (report::profileFolder().empty())
    return fail("There is no home folder to write to; name a folder with --profile.");
  const Inputs inputs = collectInputs(arguments);
  for (const std::string& notice : inputs.notices) say(notice);
  if (!inputs.error.empty() || !holdsFile(inputs.entries)) {
    const Parsed error = usageError(inputs.error.empty() ? kNoMedia : inputs.error);
    std::fputs(error.text.c_str(), stderr);
    return error.exitStatus;
  }
  const std::string json = arguments.json.empty() || arguments.json == "-"
                               ? arguments.json
                               : report::wholePath(arguments.json);
  run::workInOwnFolder();
  watchForInterrupt();
  run::SystemServices system;
  ErrorConsole errors;
  report::NoConsole nowhere;
  report::Console& console = arguments.verbose ? static_cast<report::Console&>(errors) : nowhere;
  Finished finished = synchronise(arguments, inputs.entries, system, console);
  if (!finished.outcome.cancelled && !finished.outcome.refused)
    writeProblems(arguments, finished, system, console);
  if (!arguments.quiet)
    for (const std::string& notice : notesOf(finished.outcome)) say("Note: " + notice);
  for (const std::string& failure : finished.outcome.failures) say("kestrel-align: " + failure);
  const report::Status shown = show(finished.outcome, json);
  return shown.ok() ? exitStatus(finished.outcome) : fail(shown.error);
}

}  // namespace cli
