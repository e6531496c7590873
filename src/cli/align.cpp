#include "cli/align.h"

#include <algorithm>
#include <cstdio>
#include <functional>

#include "cli/inputs.h"
#include "cli/interrupt.h"
#include "cli/option_values.h"
#include "cli/output_places.h"
#include "cli/progress_line.h"
#include "cli/talk.h"
#include "cli/terminal.h"
#include "project/project_file.h"
#include "report/disk.h"
#include "report/files.h"
#include "report/profile.h"
#include "report/run_report.h"
#include "run/entries.h"
#include "run/own_folder.h"
#include "run/project_stage.h"
#include "run/results_folder.h"
#include "run/system_services.h"

namespace cli {
namespace {

constexpr char kNoMedia[] = "No media file was found; give media files or a folder that holds them";

/// The folder is made if it is missing. Why it cannot be used; empty if it can.
std::string useProfile(const std::string& folder) {
  if (folder.empty()) {
    const bool known = !report::profileFolder().empty();
    return known ? "" : "There is no home folder to write to; name a folder with --profile";
  }
  std::string text = report::wholePath(folder);
  if (text.size() > 1 && text.ends_with('/')) text.pop_back();
  report::useProfileFolder(text);
  return whyFolderNotWritable(text);
}

/// Hours of listening are not for nothing: looks at every place of results before.
std::string whyNoPlace(const Arguments& arguments) {
  if (std::string why = whyFolderNotWritable(run::resultsFolder()); !why.empty()) return why;
  for (const std::string& file : {arguments.output, arguments.json})
    if (!file.empty() && file != "-")
      if (std::string why = whyNotWritable(file); !why.empty()) return why;
  return {};
}

/// The outcome, and what the end-of-run report is made from.
struct Finished {
  report::Outcome outcome;
  project::Project project;
  std::vector<std::string> result;
};

run::Options optionsOf(const Arguments& arguments, const Inputs& inputs) {
  run::Options options;
  options.project = inputs.project;
  project::Settings& settings = options.project.settings;
  settings = settingsOf(arguments, settings);
  options.align = settings.bySound;
  options.openFolders = arguments.open;
  options.compactXmeml = settings.compactXmeml;
  options.formats = settings.formats;
  options.drift = settings.drift;
  options.replaceAudio = settings.replaceAudio;
  options.cameraSound = settings.cameraSound;
  options.again = inputs.again;
  return options;
}

Finished synchronise(const Arguments& arguments, const Inputs& inputs, run::SystemServices& system,
                     report::Console& console) {
  const bool showProgress = !arguments.quiet && !arguments.verbose;
  ProgressLine progress(stderr, [=] { return showProgress ? errorTerminalColumns() : 0; });
  const run::Options options = optionsOf(arguments, inputs);
  const project::Settings settings = options.project.settings;
  const project::FrameSize size = settings.frameSize.value_or(project::FrameSize{});
  const double rate = settings.framesPerSecond.value_or(kAutomatic);
  std::vector<std::string> list = run::listOf(inputs.project);
  list.insert(list.end(), inputs.entries.begin(), inputs.entries.end());
  run::SyncRun run(arguments.cache ? system.withCache(console, progress, interrupted())
                                   : system.with(console, progress, interrupted()),
                   options);
  Finished finished;
  finished.result = run.synco(std::move(list), settings.tolerance, size.width, size.height,
                              static_cast<float>(rate), settings.mode);
  finished.outcome = run.outcome();
  finished.project = run.project();
  return finished;
}

/// Keeps the result under the name that was asked for.
report::Status keep(const std::string& path, Finished& finished) {
  if (path.empty()) return {};
  const report::Status saved = project::saveProject(finished.project, path);
  if (saved.ok()) finished.outcome.project = path;
  return saved;
}

void writeProblems(const Arguments& arguments, Finished& finished, run::SystemServices& system,
                   report::Console& console) {
  std::function<void(const std::string&)> execute;
  if (arguments.open) execute = [&](const std::string& line) { system.desktop().command(line); };
  const report::Status written = report::reportRun(finished.result, console, execute);
  if (!written.ok())
    run::addFailure("A file was not written: " + written.error + ".", finished.outcome);
}

int exitStatus(const report::Outcome& outcome) {
  if (outcome.cancelled) return kInterrupted;
  if (!outcome.failures.empty()) return kFailed;
  const auto isTable = [](const std::string& path) { return path.ends_with(".csv"); };
  const bool noDocument = std::ranges::all_of(outcome.outputs, isTable);
  if (!outcome.groups.empty()) return noDocument ? kFailed : kSynchronised;
  return outcome.unsynced.empty() ? kFailed : kNothingMatched;  // failed: not one could be heard
}

bool holdsFile(const Inputs& inputs) {
  return !inputs.project.devices.empty() || !std::ranges::all_of(inputs.entries, run::isMarker);
}

int wrongUsage(const std::string& problem) {
  const Parsed error = usageError(problem);
  std::fputs(error.text.c_str(), stderr);
  return error.exitStatus;
}

}  // namespace

int align(const Arguments& arguments) {
  const Inputs inputs = collectInputs(arguments);
  for (const std::string& notice : inputs.notices) say("Note: " + notice);
  if (inputs.cannotOpen) return fail(inputs.error);
  if (!inputs.error.empty()) return wrongUsage(inputs.error);
  if (!holdsFile(inputs)) return wrongUsage(kNoMedia);
  if (const std::string why = useProfile(arguments.profile); !why.empty()) return fail(why + ".");
  if (const std::string why = whyNoPlace(arguments); !why.empty()) return fail(why + ".");
  const std::string json = wholeFilePath(arguments.json);
  const std::string output = wholeFilePath(arguments.output);
  run::workInOwnFolder();
  watchForInterrupt();
  run::SystemServices system;
  ErrorConsole errors;
  report::NoConsole nowhere;
  report::Console& console = arguments.verbose ? static_cast<report::Console&>(errors) : nowhere;
  Finished finished = synchronise(arguments, inputs, system, console);
  if (!finished.outcome.cancelled && !finished.outcome.refused) {
    writeProblems(arguments, finished, system, console);
    if (const report::Status kept = keep(output, finished); !kept.ok())
      run::addFailure("The project was not saved: " + kept.error + ".", finished.outcome);
  }
  tellNotices(finished.outcome, arguments.quiet);
  const report::Status shown = showOutcome(finished.outcome, json);
  return shown.ok() ? exitStatus(finished.outcome) : fail(shown.error);
}

}  // namespace cli
