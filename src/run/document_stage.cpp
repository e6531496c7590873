#include "run/document_stage.h"

#include <algorithm>

#include "export/documents.h"
#include "report/diagnostics.h"
#include "report/disk.h"
#include "report/files.h"
#include "run/clock.h"
#include "run/results_folder.h"
#include "run/tables.h"

namespace run {
namespace {

timeline::Media mediaOf(const Material& material, int file) {
  const Entry& entry = material.entries[file];
  timeline::Media media;
  media.path = entry.listed;
  media.durationSeconds = clipSeconds(material, file);
  media.hasVideo = entry.pictureRate().has_value();
  media.frameRate = entry.pictureRate().value_or(0);
  const project::Picture picture = entry.media.facts.picture.value_or(project::Picture{});
  media.width = picture.width;
  media.height = picture.height;
  media.audioChannels = entry.media.firstSound().channels;
  media.audioRate = entry.media.firstSound().rate;
  media.device = entry.device;
  return media;
}

/// Stores a text and lists it among the outputs, or says why it could not be stored.
void store(const std::string& file, const std::string& text, Outcome& outcome) {
  const std::filesystem::path path = report::fromUtf8(file);
  const report::Status status = report::writeWhole(path, text);
  if (status.ok())
    outcome.outputs.push_back(report::wholePath(file));
  else
    outcome.notices.push_back("A file was not written: " + status.error + ".");
}

}  // namespace

timeline::Project projectOf(const place::Placement& placement, const Material& material,
                            const Settings& settings) {
  timeline::Project project;
  project.fps = settings.framesPerSecond;
  project.width = settings.width;
  project.height = settings.height;
  std::vector<int> mediaIndex(material.entries.size(), -1);
  for (int file = 0; file < std::ssize(material.entries); ++file) {
    if (!material.entries[file].isFile()) continue;
    mediaIndex[file] = static_cast<int>(project.media.size());
    project.media.push_back(mediaOf(material, file));
  }
  for (const place::PlacedGroup& placed : placement.groups) {
    timeline::Group group{"Group " + std::to_string(project.groups.size() + 1), {}};
    for (const place::Placed& member : placed.members)
      group.clips.push_back({mediaIndex[member.file], member.offsetSeconds, member.confidence});
    project.groups.push_back(std::move(group));
  }
  for (const place::Alone& alone : placement.alone)
    if (mediaIndex[alone.file] >= 0) project.unsynced.push_back(mediaIndex[alone.file]);
  return project;
}

void writeTables(const std::vector<float>& table, const Services& services, Outcome& outcome) {
  store("csvtabela.csv", tableText(table, kRecordFields), outcome);
  store("csvtabela-clean.csv", tableText(cleanTable(table), kCleanFields), outcome);
  services.console.line("csvtabela-clean.csv");
}

void writeDocuments(const timeline::Project& project, const Options& options,
                    const Services& services, Outcome& outcome) {
  const timeline::DocumentOptions wanted{
      services.clock.timeOfDay(), options.formats,
      options.compactXmeml ? timeline::XmemlForm::compact : timeline::XmemlForm::complete};
  const timeline::Documents written = timeline::documents(project, wanted, services.console);
  for (const std::string& line : written.log) report::appendLogLine(line);
  const int count = static_cast<int>(written.files.size());
  for (int i = 0; i < count; ++i) {
    const timeline::Document& document = written.files[i];
    store(resultsFolder() + "/" + document.name, document.text, outcome);
    services.progress.stage(Stage::write, document.name, i + 1, count);
  }
}

}  // namespace run
