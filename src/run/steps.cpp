#include "run/steps.h"

#include <algorithm>
#include <utility>

#include "analysis/sound.h"
#include "export/from_project.h"
#include "export/sequence.h"
#include "project/project_file.h"
#include "report/diagnostics.h"
#include "report/disk.h"
#include "report/files.h"
#include "report/profile.h"
#include "run/clock.h"
#include "run/convert.h"
#include "run/desktop.h"
#include "run/document_stage.h"
#include "run/entries.h"
#include "run/file_list.h"
#include "run/fingerprint_stage.h"
#include "run/notices.h"
#include "run/other_tracks.h"
#include "run/place_stage.h"
#include "run/probing.h"
#include "run/project_report.h"
#include "run/project_stage.h"
#include "run/result_list.h"
#include "run/results_folder.h"

namespace run {

namespace {

void takeOver(const Conversion& conversion, Entry& entry) {
  entry.conversion = conversion.result;
  entry.refusal = conversion.refusal;
  entry.remedy = conversion.remedy;
  if (!conversion.sound.empty()) entry.converted = conversion.sound;
}

}  // namespace

Steps::Steps(const Services& services, const Options& options, const Settings& settings,
             Outcome& outcome, project::Project& project, TemporaryFolder& spare)
    : services_(services),
      options_(options),
      settings_(settings),
      outcome_(outcome),
      project_(project),
      spare_(spare),
      early_(settings.tolerance, services),
      kept_(services.cache, spare) {}

std::vector<std::string> Steps::run(const std::vector<std::string>& videofiles) {
  if (const std::string why = whyRefused(videofiles); !why.empty()) {
    addFailure(why, outcome_);
    outcome_.refused = true;
    return {why};
  }
  std::vector<std::string> repeated;
  list_ = withDummy(withoutRepeats(videofiles, repeated));
  for (const std::string& path : repeated)
    addNotice(path + " is listed more than once; it is used once.");
  for (const auto step : {&Steps::begin, &Steps::convert, &Steps::probe, &Steps::fingerprint,
                          &Steps::keep, &Steps::compare, &Steps::place}) {
    (this->*step)();
    if (!services_.cancelled) continue;
    outcome_.cancelled = true;
    outcome_.groups.clear();  // places that are not worked out to the end are none
    outcome_.unsynced.clear();
    return cancelledResult(result_);
  }
  fill();
  if (comparison_.table.size() <= 1 && placement_.groups.empty()) {
    saveProject();
    return noMatchResult(result_);
  }
  write();
  saveProject();
  show();
  for (const std::string& entry : result_) services_.console.line(entry);
  return finishedResult(result_);
}

std::string Steps::whyRefused(const std::vector<std::string>& videofiles) {
  const auto markers = static_cast<std::size_t>(std::ranges::count_if(videofiles, isMarker));
  if (std::string many = tooManyEntries(videofiles.size() - markers, markers); !many.empty())
    return many;
  if (const std::string unmade = makeResultsFolders(); !unmade.empty())
    addFailure(unmade, outcome_);
  results_.emplace(report::fromUtf8(resultsFolder()));
  return results_->isMine() ? std::string() : busyFolder(report::nativeSlashes(resultsFolder()));
}

void Steps::begin() {
  const std::string desktop = services_.desktop.movedTo();
  const bool linked = !desktop.empty() && services_.desktop.putShortcut(resultsFolder(), desktop);
  addNotice(noticeOfMovedDesktop(desktop, linked));
  startLog(settings_.mode);
  services_.progress.moveprogressslot(0);
  project_.settings = projectSettings(settings_, options_, project_.settings);
}

void Steps::convert() {
  report::appendLogLine("pred ffmpeg..");  // before ffmpeg
  places_.emplace(list_, spare_);
  const std::vector<MediaProperties> media = askAll(list_, services_);
  const std::vector<std::string> rest = kept_.fetch(list_);
  const auto listen = [&](const std::string& sound) { early_.listen(sound); };
  const std::vector<Conversion> results = convertAll(rest, *places_, services_, media, listen);
  services_.progress.moveprogressslot(0);
  report::appendLogLine("posle ffmpeg..");  // after ffmpeg
  material_.entries = makeEntries(list_);
  for (std::size_t i = 0; i < results.size(); ++i) {
    takeOver(results[i], material_.entries[i]);
    material_.entries[i].media = media[i];
  }
  kept_.putInto(material_.entries);
  addEntries(project_, material_.entries);
  report::appendLogLine("fahlovite se resemplirani vo 8000hz -------------------------");
  const std::vector<std::string> names = convertedNames(list_);
  for (const std::string& name : names) report::appendLogLine("resemplirani" + name);
  material_.groups = deviceGroups(names);
}

void Steps::probe() {
  const MissingPrograms missing = missingPrograms(material_.entries, services_.probe);
  markUnconverted(material_.entries);
  probeAll(material_.entries, services_, result_, outcome_.ignored);
  dropMarked(material_.entries);
  for (const std::string& notice : useOtherTracks(material_.entries, spare_, services_)) {
    addNotice(notice);
    kept_.forget(notice);
  }
  for (const std::string& notice : noticesOf(missing, material_.entries)) addNotice(notice);
}

void Steps::fingerprint() {
  kept_.fetchHeard(settings_.tolerance, early_);
  fingerprintAll(material_, settings_.tolerance, services_, early_);
  if (!services_.cancelled) kept_.keepHeard(material_, settings_.tolerance);
}

void Steps::keep() {
  services_.console.line("desktop path:" + resultsFolder());
  (void)makeResultsFolders();  // said at the beginning
  material_.sounds =
      keepSounds(material_.entries, resultsFolder() + "/debugfiles/", spare_, services_.console);
  for (std::size_t i = 0; i < material_.sounds.size(); ++i) {
    const std::string& sound = material_.sounds[i];
    material_.samples.push_back(sound.empty() ? 0 : analysis::soundLength(sound));
    if (!material_.entries[i].isFile() || material_.samples.back() > 0) continue;
    const bool lost = sound.empty();
    outcome_.ignored.push_back(
        {material_.entries[i].listed,
         lost ? "there is no place to keep its converted sound"
              : "its converted sound cannot be read",
         lost ? "Make room on the drives of the desktop and temporary folders." : "Start again."});
  }
  for (const std::string& notice : noticesOfSounds(material_)) addNotice(notice);
  kept_.keepSounds(material_);
}

void Steps::compare() {
  report::appendLogLine("PRED PROVERI ALL MNOGU BITNO!!!!!!!!!!!!!!!  -------------------------");
  comparison_ = compareAll(material_, settings_.mode, services_);
  report::appendLogLine("POSLE PROVERI ALL MNOGU BITNO!!!!!!!!!!!!!!!  -------------------------");
  services_.console.line("1125");
  material_.fingerprints.clear();
}

void Steps::place() {
  placement_ = placeAll(material_, comparison_, options_.align, services_);
  describePlacement(placement_, material_, outcome_);
  services_.console.line(
      "******************************** U N S Y N C E D F I L E S ****************************");
  for (const LeftOut& file : outcome_.unsynced) services_.console.line(file.path);
}

void Steps::fill() {
  fillProject(project_, {material_, placement_, comparison_, outcome_}, options_.again);
  showProject(project_, outcome_);
}

/// Beside the documents, so that every result can be opened again.
void Steps::saveProject() {
  const std::string time = services_.clock.timeOfDay();
  project_.written = {resultsFolder(), time, outcome_.outputs, outcome_.notices, {}};
  const std::string path = projectPath(resultsFolder(), time);
  const report::Status saved = project::saveProject(project_, path);
  if (saved.ok())
    outcome_.project = path;
  else
    addFailure("The project was not saved: " + saved.error + ".", outcome_);
}

/// Documents are worth more than sounds that are kept for looking into them.
void Steps::write() {
  const Outcome before = outcome_;
  writeAll();
  if (outcome_.failures.size() == before.failures.size() || !dropKeptSounds()) return;
  const std::vector<Group> groups = std::move(outcome_.groups);
  outcome_ = before;
  outcome_.groups = groups;
  writeAll();
}

/// Makes room in the results folder. False if there was nothing to drop.
bool Steps::dropKeptSounds() {
  const std::string kept = resultsFolder() + "/debugfiles/";
  const auto drop = [&](std::string& sound) {
    if (!sound.starts_with(kept)) return false;
    report::removeFile(report::fromUtf8(sound));
    sound.clear();
    return true;
  };
  for (Group& group : outcome_.groups)
    for (Member& member : group.members) (void)drop(member.soundPath);
  return std::ranges::count_if(material_.sounds, drop) > 0;
}

void Steps::writeAll() {
  writeTables(comparison_.table, services_, outcome_);
  for (const Entry& entry : material_.entries)
    if (entry.isFile()) services_.console.line("fpss:" + entry.frameRate);
  const timeline::Sequence sequence = timeline::sequenceOf(project_);
  addNotice(sequence.why);
  for (const std::string& notice : sequence.notices) addNotice(notice);
  (void)makeResultsFolders();
  if (options_.openFolders) services_.desktop.command(resultsFolder());
  const SoundOf soundOf = [this](const std::string& path) {
    const auto found = std::ranges::find_if(material_.entries, [&](const Entry& entry) {
      return entry.listed == path || report::wholePath(entry.listed) == path;
    });
    if (found == material_.entries.end()) return std::string();
    return material_.sounds[static_cast<std::size_t>(found - material_.entries.begin())];
  };
  writeResults(project_, resultsFolder(), options_, soundOf, services_, outcome_);
}

void Steps::show() {
  const std::string command = "open \"" + resultsFolder() + "/\"";
  services_.console.line("komanda" + command);
  if (!options_.openFolders) return;
  services_.desktop.command(command);
  services_.desktop.show(resultsFolder());
}

void Steps::addNotice(const std::string& notice) {
  if (!notice.empty()) outcome_.notices.push_back(notice);
}

}  // namespace run
