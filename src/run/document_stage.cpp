#include "run/document_stage.h"

#include <algorithm>

#include "export/documents.h"
#include "export/from_project.h"
#include "report/diagnostics.h"
#include "report/disk.h"
#include "report/files.h"
#include "run/clock.h"
#include "run/clock_stage.h"
#include "run/tables.h"

namespace run {
namespace {

/// Stores a text and lists it among the outputs, or says why it could not be stored.
void store(const std::string& file, const std::string& text, Outcome& outcome) {
  const std::filesystem::path path = report::fromUtf8(file);
  const report::Status status = report::writeWhole(path, text);
  if (status.ok())
    outcome.outputs.push_back(report::wholePath(file));
  else
    addFailure("A file was not written: " + status.error + ".", outcome);
}

}  // namespace

void writeTables(const std::vector<float>& table, const Services& services, Outcome& outcome) {
  store("csvtabela.csv", tableText(table, kRecordFields), outcome);
  store("csvtabela-clean.csv", tableText(cleanTable(table), kCleanFields), outcome);
  services.console.line("csvtabela-clean.csv");
}

void writeDocuments(const timeline::Project& project, const std::string& folder,
                    const Options& options, const Services& services, Outcome& outcome) {
  const timeline::DocumentOptions wanted{
      services.clock.timeOfDay(), options.formats,
      options.compactXmeml ? timeline::XmemlForm::compact : timeline::XmemlForm::complete};
  const timeline::Documents written = timeline::documents(project, wanted, services.console);
  if (!written.error.empty()) outcome.notices.push_back(written.error + ".");
  for (const std::string& line : written.log) report::appendLogLine(line);
  const int count = static_cast<int>(written.files.size());
  for (int i = 0; i < count; ++i) {
    const timeline::Document& document = written.files[i];
    store(folder + "/" + document.name, document.text, outcome);
    services.progress.stage(Stage::write, document.name, i + 1, count);
  }
}

void writeResults(const project::Project& project, const std::string& folder,
                  const Options& options, const SoundOf& soundOf, const Services& services,
                  Outcome& outcome) {
  timeline::Project timeline = timeline::timelineOf(project);
  NewSounds sounds(folder, services, outcome);
  correctClocks(timeline, driftOf(project.settings.drift), sounds, soundOf, outcome);
  if (project.settings.replaceAudio) replaceAudio(timeline, sounds);
  writeDocuments(timeline, folder, options, services, outcome);
}

Outcome exportDocuments(const project::Project& project, const std::string& folder,
                        const Services& services) {
  Outcome outcome;
  const std::filesystem::path vegas = report::fromUtf8(folder + "/VEGAS_SEQUENCES");
  if (const std::error_code error = report::makeFolders(vegas))
    outcome.notices.push_back("The folder " + folder + " cannot be written to (" + error.message() +
                              ").");
  Options options;
  options.formats = project.settings.formats;
  options.compactXmeml = project.settings.compactXmeml;
  const SoundOf none = [](const std::string&) { return std::string(); };
  writeResults(project, folder, options, none, services, outcome);
  return outcome;
}

}  // namespace run
