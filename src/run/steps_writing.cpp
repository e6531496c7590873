#include <algorithm>

#include "export/sequence.h"
#include "project/project_file.h"
#include "report/disk.h"
#include "report/files.h"
#include "run/clock.h"
#include "run/desktop.h"
#include "run/document_stage.h"
#include "run/project_report.h"
#include "run/project_stage.h"
#include "run/results_folder.h"
#include "run/steps.h"

// What a run writes and shows when it knows where the recordings stand.
namespace run {

void Steps::fill() {
  fillProject(project_, {material_, placement_, comparison_, outcome_}, options_.again);
  showProject(project_, outcome_);
}

/// Beside the documents, so that every result can be opened again.
void Steps::saveProject() {
  const std::string time = services_.clock.timeOfDay();
  project_.written = {documentsFolder(), time, outcome_.outputs, outcome_.notices, {}};
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
  if (!options_.documentsFolder.empty()) makeDocumentsFolder(options_.documentsFolder, outcome_);
  writeResults(project_, documentsFolder(), options_, soundOf, services_, outcome_);
}

void Steps::show() {
  const std::string command = "open \"" + resultsFolder() + "/\"";
  services_.console.line("komanda" + command);
  if (!options_.openFolders) return;
  services_.desktop.command(command);
  services_.desktop.show(documentsFolder());
}

std::string Steps::documentsFolder() const {
  return options_.documentsFolder.empty() ? resultsFolder() : options_.documentsFolder;
}

}  // namespace run
