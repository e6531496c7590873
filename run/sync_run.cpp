#include "run/sync_run.h"

#include <algorithm>

#include "analysis/sound.h"
#include "report/diagnostics.h"
#include "report/read2sync.h"
#include "report/run_report.h"
#include "run/clock.h"
#include "run/compare_stage.h"
#include "run/convert.h"
#include "run/desktop.h"
#include "run/document_stage.h"
#include "run/entries.h"
#include "run/file_list.h"
#include "run/fingerprint_stage.h"
#include "run/kept_sounds.h"
#include "run/notices.h"
#include "run/place_stage.h"
#include "run/probing.h"
#include "run/results_folder.h"

namespace run {

struct SyncRun::State {
  Services services;
  Options options;
  Outcome outcome;
  TemporaryFolder spare;  // for sounds that cannot be kept among the results
};

namespace {

/// Deletes the converted files at the end, however the run ends.
class BesideSources {
 public:
  void expect(std::vector<std::string> converted) { converted_ = std::move(converted); }
  ~BesideSources() { removeConverted(converted_); }

 private:
  std::vector<std::string> converted_;
};

/// The steps of one run in their order, and what they hand to one another.
class Steps {
 public:
  Steps(Services services, const Options& options, const Settings& settings, Outcome& outcome,
        TemporaryFolder& spare)
      : services_(services),
        options_(options),
        settings_(settings),
        outcome_(outcome),
        spare_(spare) {}

  std::vector<std::string> run(const std::vector<std::string>& videofiles) {
    if (std::ssize(videofiles) > kMostEntries) return refused(videofiles.size());
    list_ = withDummy(usedOnce(videofiles));
    for (const auto step : {&Steps::begin, &Steps::convert, &Steps::probe, &Steps::fingerprint,
                            &Steps::keep, &Steps::compare, &Steps::place}) {
      (this->*step)();
      if (services_.cancelled) return cancelled();
    }
    if (comparison_.table.size() <= 1 && placement_.groups.empty()) return nothingMatched();
    write();
    show();
    return finished();
  }

 private:
  std::vector<std::string> usedOnce(const std::vector<std::string>& videofiles) {
    std::vector<std::string> repeated;
    auto once = withoutRepeats(videofiles, repeated);
    for (const std::string& path : repeated)
      outcome_.notices.push_back(path + " is listed more than once; it is used once.");
    return once;
  }

  void begin() {
    addNotice(makeResultsFolders());
    startLog(settings_.mode);
    services_.progress.moveprogressslot(0);
  }

  void convert() {
    report::appendLogLine("pred ffmpeg..");  // before ffmpeg
    beside_.expect(ownConvertedNames(list_));
    const std::vector<ProcessResult> results = convertAll(list_, services_);
    services_.progress.moveprogressslot(0);
    report::appendLogLine("posle ffmpeg..");  // after ffmpeg
    material_.entries = makeEntries(list_);
    for (std::size_t i = 0; i < results.size(); ++i) material_.entries[i].conversion = results[i];
    report::appendLogLine("fahlovite se resemplirani vo 8000hz -------------------------");
    const std::vector<std::string> names = convertedNames(list_);
    for (const std::string& name : names) report::appendLogLine("resemplirani" + name);
    material_.groups = deviceGroups(names);
  }

  void probe() {
    const MissingPrograms missing = missingPrograms(material_.entries, services_.probe);
    markUnconverted(material_.entries);
    probeAll(material_.entries, services_, result_, outcome_.ignored);
    dropMarked(material_.entries);
    for (const std::string& notice : noticesOf(missing, material_.entries)) addNotice(notice);
  }

  void fingerprint() { fingerprintAll(material_, settings_.tolerance, services_); }

  void keep() {
    services_.console.line("desktop path:" + resultsFolder());
    (void)makeResultsFolders();  // said at the beginning
    material_.sounds =
        keepSounds(material_.entries, resultsFolder() + "/debugfiles/", spare_, services_.console);
    for (const std::string& sound : material_.sounds)
      material_.samples.push_back(sound.empty() ? 0 : analysis::soundLength(sound));
    for (const std::string& notice : noticesOfSounds(material_)) addNotice(notice);
  }

  void compare() {
    report::appendLogLine("PRED PROVERI ALL MNOGU BITNO!!!!!!!!!!!!!!!  -------------------------");
    comparison_ = compareAll(material_, settings_.mode, services_);
    report::appendLogLine(
        "POSLE PROVERI ALL MNOGU BITNO!!!!!!!!!!!!!!!  -------------------------");
    services_.console.line("1125");
    material_.fingerprints.clear();
  }

  void place() {
    placement_ = placeAll(material_, comparison_, options_.align, services_);
    describePlacement(placement_, material_, outcome_);
    services_.console.line(
        "******************************** U N S Y N C E D F I L E S ****************************");
    for (const LeftOut& file : outcome_.unsynced) services_.console.line(file.path);
  }

  void write() {
    writeTables(comparison_.table, services_, outcome_);
    (void)makeResultsFolders();
    if (options_.openFolders) services_.desktop.command(resultsFolder());
    writeDocuments(projectOf(placement_, material_, settings_), options_, services_, outcome_);
  }

  void show() {
    const std::string command = "open \"" + resultsFolder() + "\"";
    services_.console.line("komanda" + command);
    if (!options_.openFolders) return;
    services_.desktop.command(command);
    services_.desktop.show(resultsFolder());
  }

  std::vector<std::string> refused(std::size_t entries) {
    addNotice(makeResultsFolders());
    const std::string reason = std::to_string(entries) + " entries are listed, and one run takes " +
                               std::to_string(kMostEntries) +
                               " at most. Nothing was done: synchronise them in parts.";
    addNotice(reason);
    return {reason};
  }

  std::vector<std::string> cancelled() {
    outcome_.cancelled = true;
    result_.front() = "The run was cancelled.";
    return result_;
  }

  std::vector<std::string> nothingMatched() {
    result_.insert(result_.begin(), report::kNothingMatched);
    return result_;
  }

  std::vector<std::string> finished() {
    for (std::string& entry : result_) {
      services_.console.line(entry);
      if (entry.size() >= kConvertedSuffix.size())
        entry.resize(entry.size() - kConvertedSuffix.size());
    }
    if (result_.size() == 1) result_ = {report::kSuccess};
    return result_;
  }

  void addNotice(const std::string& notice) {
    if (!notice.empty()) outcome_.notices.push_back(notice);
  }

  Services services_;
  const Options& options_;
  const Settings& settings_;
  Outcome& outcome_;
  TemporaryFolder& spare_;
  std::vector<std::string> list_;             // the dummy entry and all that is used
  std::vector<std::string> result_{"first"};  // then the ignored files
  BesideSources beside_;
  Material material_;
  Comparison comparison_;
  matching::Placement placement_;
};

/// The page for people; in place of the one of an earlier run.
void writePage(const Outcome& outcome, const Settings& settings, bool bySound) {
  std::string page =
      report::read2syncPage(outcome, {settings.tolerance, settings.mode, settings.framesPerSecond,
                                      settings.width, settings.height, bySound});
  if (page.ends_with('\n')) page.pop_back();
  report::removeRead2SyncFile();
  report::appendRead2SyncLine(page);
}

}  // namespace

SyncRun::SyncRun(Services services, Options options)
    : state_(new State{services, std::move(options), {}, {}}) {}

SyncRun::~SyncRun() = default;

std::vector<std::string> SyncRun::synco(std::vector<std::string> videofiles, double a_d, int resx,
                                        int resy, float frps, int prem) {
  State& state = *state_;
  const Settings settings{a_d, resx, resy, frps, prem};
  Steps steps(state.services, state.options, settings, state.outcome, state.spare);
  std::vector<std::string> result = steps.run(videofiles);
  state.outcome.status = result.front();
  writePage(state.outcome, settings, state.options.align);
  return result;
}

const Outcome& SyncRun::outcome() const { return state_->outcome; }

}  // namespace run
