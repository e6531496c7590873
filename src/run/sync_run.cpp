#include "run/sync_run.h"

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
void writePage(const Outcome& outcome, const Settings& settings, const timeline::Sequence& sequence,
               bool bySound) {
  std::string page = report::read2syncPage(
      outcome, {settings.tolerance, settings.mode, static_cast<float>(sequence.fps), sequence.width,
                sequence.height, bySound});
  if (page.ends_with('\n')) page.pop_back();
  report::removeRead2SyncFile();
  report::appendRead2SyncLine(page);
}

}  // namespace

SyncRun::SyncRun(Services services, Options options)
    : state_(new State{services, std::move(options), {}, {}, {}}) {}

SyncRun::~SyncRun() = default;

std::vector<std::string> SyncRun::synco(std::vector<std::string> videofiles, double a_d, int resx,
                                        int resy, float frps, int prem) {
  State& state = *state_;
  state.project = state.options.project;
  const Settings settings{a_d, resx, resy, frps, prem};
  std::vector<std::string> result =
      Steps(state.services, state.options, settings, state.outcome, state.project, state.spare)
          .run(videofiles);
  state.outcome.status = result.front();
  writePage(state.outcome, settings, timeline::sequenceOf(state.project), state.options.align);
  return result;
}

const Outcome& SyncRun::outcome() const { return state_->outcome; }

const project::Project& SyncRun::project() const { return state_->project; }

}  // namespace run
