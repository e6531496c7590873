#include "run/document_stage.h"

#include <map>
#include <set>
#include <string_view>

#include "export/documents.h"
#include "export/from_project.h"
#include "report/diagnostics.h"
#include "report/disk.h"
#include "report/files.h"
#include "report/profile.h"
#include "run/clock.h"
#include "run/clock_stage.h"
#include "run/project_report.h"
#include "run/quiet_moment.h"
#include "run/replacement.h"
#include "run/sound_cache.h"
#include "run/tables.h"
#include "run/temporary_folder.h"

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

/// Sounds of earlier runs, as far as they are kept, copied to where they can be read.
class EarlierSounds {
 public:
  explicit EarlierSounds(const SoundCache* cache) : cache_(cache) {}

  std::string of(const std::string& path) {
    const std::filesystem::path& folder = spare_.path();
    if (!cache_ || folder.empty()) return {};
    const std::string copy = report::toUtf8(folder / (std::to_string(++count_) + ".wav"));
    return cache_->fetchSound(SoundCache::keyOf(path), copy) ? copy : std::string();
  }

 private:
  const SoundCache* cache_;
  TemporaryFolder spare_;
  int count_ = 0;
};

/// Converted sounds begin with the sound, files with their picture.
double quietIn(const SoundOf& soundOf, const timeline::Media& media, double seconds) {
  const auto& sounds = media.facts.sounds;
  const double late = sounds.empty() ? 0 : sounds[media.heardStream].startSeconds;
  return quietMoment(soundOf(media.path), seconds - late) + late;
}

/// Edit lists have numbers for names. Those of a run with more groups would pass for this one's.
void removeOldLists(const std::string& folder, const timeline::Documents& written) {
  constexpr std::string_view kLists = "VEGAS_SEQUENCES/", kEnding = ".edl";
  std::set<std::string> current;
  for (const timeline::Document& document : written.files)
    if (document.name.starts_with(kLists)) current.insert(document.name.substr(kLists.size()));
  if (current.empty()) return;
  const std::filesystem::path lists = report::fromUtf8(folder) / kLists;
  for (const report::FolderItem& item : report::itemsOf(lists)) {
    if (!item.isFile || !item.name.ends_with(kEnding) || current.contains(item.name)) continue;
    const std::string number = item.name.substr(0, item.name.size() - kEnding.size());
    if (!number.empty() && number.find_first_not_of("0123456789") == number.npos)
      report::removeFile(lists / report::fromUtf8(item.name));
  }
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
  if (!written.error.empty()) addFailure(written.error + ".", outcome);
  for (const std::string& line : written.log) report::appendLogLine(line);
  const int count = static_cast<int>(written.files.size());
  for (int i = 0; i < count; ++i) {
    const timeline::Document& document = written.files[i];
    store(folder + "/" + document.name, document.text, outcome);
    services.progress.stage(Stage::write, document.name, i + 1, count);
  }
  removeOldLists(folder, written);
}

void writeResults(const project::Project& project, const std::string& folder,
                  const Options& options, const SoundOf& soundOf, const Services& services,
                  Outcome& outcome) {
  timeline::Project timeline = timeline::timelineOf(project);
  NewSounds sounds(folder, services, outcome);
  const WriteSound write = [&](const NewSound& sound, const std::string& name) {
    return sounds.write(sound, name);
  };
  const QuietMomentOf quiet = [&](const timeline::Media& media, double seconds) {
    return quietIn(soundOf, media, seconds);
  };
  correctClocks(timeline, driftOf(project.settings.drift), write, quiet, outcome);
  if (project.settings.replaceAudio) replaceAudio(timeline, sounds);
  writeDocuments(timeline, folder, options, services, outcome);
}

void makeDocumentsFolder(const std::string& folder, Outcome& outcome) {
  const std::filesystem::path vegas = report::fromUtf8(folder + "/VEGAS_SEQUENCES");
  if (const std::error_code error = report::makeFolders(vegas))
    addFailure("The folder " + report::nativeSlashes(folder) + " cannot be written to (" +
                   error.message() + ").",
               outcome);
}

Outcome exportDocuments(const project::Project& project, const std::string& folder,
                        const Services& services) {
  Outcome outcome = outcomeOf(project);
  outcome.outputs.clear();
  outcome.notices.clear();
  makeDocumentsFolder(folder, outcome);
  Options options;
  options.formats = project.settings.formats;
  options.compactXmeml = project.settings.compactXmeml;
  EarlierSounds earlier(services.cache);
  std::map<std::string, std::string> sounds;  // fetched once, for there are many cuts
  const SoundOf soundOf = [&](const std::string& path) {
    const auto [known, isNew] = sounds.try_emplace(path);
    if (isNew) known->second = earlier.of(path);
    return known->second;
  };
  writeResults(project, folder, options, soundOf, services, outcome);
  return outcome;
}

}  // namespace run
