#include "run/sync_run.h"

#include <exception>
#include <new>

#include "export/sequence.h"
#include "report/diagnostics.h"
#include "report/read2sync.h"
#include "run/steps.h"

namespace run {

struct SyncRun::State {
  Services services;
  Options options;
  Outcome outcome;
  project::Project project;
  TemporaryFolder spare;
};

namespace {

/// The page for people; in place of the one of an earlier run.
void writePage(Outcome& outcome, const Settings& settings, const timeline::Sequence& sequence,
               bool bySound) {
  const std::string page = report::read2syncPage(
      outcome,
      {settings.tolerance, settings.mode, sequence.fps, sequence.width, sequence.height, bySound});
  const report::Status written = report::replaceRead2SyncFile(page);
  if (!written.ok()) addFailure("A file was not written: " + written.error + ".", outcome);
}

std::vector<std::string> failed(Outcome& outcome, const std::string& why) {
  outcome = {};
  outcome.refused = true;
  addFailure("The run failed: " + why + ".", outcome);
  return {outcome.failures.front()};
}

}  // namespace

// Memory that runs short or a library that gives up ends the run, not the program.
std::vector<std::string> SyncRun::runAll(State& state, const Settings& settings,
                                         const std::vector<std::string>& list) {
  try {
    return Steps(state.services, state.options, settings, state.outcome, state.project, state.spare)
        .run(list);
  } catch (const std::bad_alloc&) {
    return failed(state.outcome,
                  "there is not enough memory; close other programs or use fewer files at once");
  } catch (const std::exception& error) {
    return failed(state.outcome, error.what());
  }
}

SyncRun::SyncRun(Services services, Options options)
    : state_(new State{services, std::move(options), {}, {}, {}}) {}

SyncRun::~SyncRun() = default;

std::vector<std::string> SyncRun::synco(std::vector<std::string> videofiles, double a_d, int resx,
                                        int resy, float frps, int prem) {
  State& state = *state_;
  state.project = state.options.project;
  const Settings settings{a_d, resx, resy, frps, prem};
  std::vector<std::string> result = runAll(state, settings, videofiles);
  state.outcome.status = result.front();
  // A run that found nothing out leaves what the last one did.
  if (!state.outcome.cancelled && !state.outcome.refused)
    writePage(state.outcome, settings, timeline::sequenceOf(state.project), state.options.align);
  return result;
}

const Outcome& SyncRun::outcome() const { return state_->outcome; }

const project::Project& SyncRun::project() const { return state_->project; }

}  // namespace run
