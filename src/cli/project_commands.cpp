#include "cli/project_commands.h"

#include "cli/align.h"
#include "cli/inputs.h"
#include "cli/interrupt.h"
#include "cli/output_places.h"
#include "cli/progress_line.h"
#include "cli/talk.h"
#include "cli/terminal.h"
#include "project/device_names.h"
#include "report/disk.h"
#include "run/clock_stage.h"
#include "run/document_stage.h"
#include "run/project_report.h"
#include "run/system_services.h"

namespace cli {
namespace {

/// The project's documents, written into `folder`.
report::Outcome write(const project::Project& project, const std::string& folder,
                      const Arguments& arguments) {
  run::SystemServices system;
  ErrorConsole errors;
  report::NoConsole nowhere;
  report::Console& console = arguments.verbose ? static_cast<report::Console&>(errors) : nowhere;
  ProgressLine progress(stderr, [] { return 0; });
  return run::exportDocuments(project, folder, system.withCache(console, progress, interrupted()));
}

}  // namespace

int exportDocuments(const Arguments& arguments) {
  Inputs inputs;
  openProject(arguments.entries.front(), inputs);
  if (!inputs.error.empty()) return fail(inputs.error);
  const std::string project = report::wholePath(arguments.entries.front());
  const std::string folder = arguments.folder.empty() ? std::string(project::folderOf(project))
                                                      : report::wholePath(arguments.folder);
  if (const std::string why = whyFolderNotWritable(folder); !why.empty()) return fail(why + ".");
  inputs.project.settings = settingsOf(arguments, inputs.project.settings);
  const report::Outcome outcome = write(inputs.project, folder, arguments);
  if (!arguments.quiet)
    for (const std::string& notice : inputs.notices) say("Note: " + notice);
  tellNotices(outcome, arguments.quiet);
  const report::Status shown = showOutcome(outcome, wholeFilePath(arguments.json));
  if (!shown.ok()) return fail(shown.error);
  return outcome.outputs.empty() || !outcome.failures.empty() ? kFailed : kSynchronised;
}

int show(const Arguments& arguments) {
  Inputs inputs;
  openProject(arguments.entries.front(), inputs);
  if (!inputs.error.empty()) return fail(inputs.error);
  for (const std::string& notice : inputs.notices) say("Note: " + notice);
  report::Outcome outcome = run::outcomeOf(inputs.project);
  run::foretellClocks(inputs.project, outcome);
  outcome.project = report::wholePath(arguments.entries.front());
  const report::Status shown = showOutcome(outcome, wholeFilePath(arguments.json));
  return shown.ok() ? kSynchronised : fail(shown.error);
}

}  // namespace cli
