#include "run/steps.h"

#include <algorithm>
#include <functional>
#include <utility>

#include "analysis/sound.h"
#include "report/diagnostics.h"
#include "report/files.h"
#include "report/profile.h"
#include "run/convert.h"
#include "run/desktop.h"
#include "run/entries.h"
#include "run/file_list.h"
#include "run/fingerprint_stage.h"
#include "run/notices.h"
#include "run/other_tracks.h"
#include "run/place_stage.h"
#include "run/probing.h"
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
  const auto files = std::ranges::count_if(videofiles, std::not_fn(isMarker));
  if (std::string many = tooManyFiles(static_cast<std::size_t>(files)); !many.empty()) return many;
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
  keepIndicesShort();
  for (const std::string& notice : useOtherTracks(material_.entries, spare_, services_)) {
    addNotice(notice);
    kept_.forget(notice);
  }
  for (const std::string& notice : noticesOf(missing, material_.entries)) addNotice(notice);
}

/// As many files as a run takes leave no indices for marker lines.
void Steps::keepIndicesShort() {
  if (std::ssize(material_.entries) <= kMostFiles + 1) return;
  dropMarkers(material_.entries);
  material_.groups = groupsOfDevices(material_.entries);
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
}

void Steps::place() {
  placement_ = placeAll(material_, comparison_, options_.align, services_, outcome_);
  describePlacement(placement_, material_, outcome_);
  services_.console.line(
      "******************************** U N S Y N C E D F I L E S ****************************");
  for (const LeftOut& file : outcome_.unsynced) services_.console.line(file.path);
}

void Steps::addNotice(const std::string& notice) {
  if (!notice.empty()) outcome_.notices.push_back(notice);
}

}  // namespace run
