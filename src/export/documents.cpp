#include "export/documents.h"

#include <algorithm>
#include <array>

#include "export/fcpxml.h"
#include "export/lanes.h"
#include "export/mlt.h"
#include "export/otio.h"
#include "export/reaper.h"
#include "export/text.h"
#include "export/vegas.h"

namespace timeline {
namespace {

constexpr std::array<std::string_view, 8> kFormats{"fcp",   "premiere", "fcpx", "fcpx110",
                                                   "vegas", "otio",     "mlt",  "rpp"};
constexpr std::string_view kOnlyIfAsked = "rpp";

/// Everything that the writers of one run share.
struct Job {
  const Project& project;
  XmemlForm form;
  std::string time;
  report::Console& console;
  Documents result;

  void add(std::string_view prefix, std::string_view suffix, std::string text) {
    std::string name(prefix);
    result.files.push_back({name.append(time).append(suffix), std::move(text)});
  }
};

void addXmeml(Job& job, XmemlTarget target, std::string_view synced, std::string_view unsynced) {
  for (const Part part : {Part::synced, Part::unsynced})
    job.add(part == Part::synced ? synced : unsynced, "--.XML",
            xmemlDocument(job.project, job.form, target, part));
}

void addFcpxml(Job& job, FcpxmlVersion version, std::string_view synced,
               std::string_view unsynced) {
  for (const Part part : {Part::synced, Part::unsynced})
    job.add(part == Part::synced ? synced : unsynced, "--.FCPXML",
            fcpxmlDocument(job.project, version, part));
}

void addVegas(Job& job) {
  int number = 0;
  for (const Group& group : job.project.groups)
    job.result.files.push_back({"VEGAS_SEQUENCES/" + numberText(++number) + ".edl",
                                vegasEditList(job.project, group, job.console)});
}

/// For formats of one timeline a file: each group its own, and one for what stands in none.
void addTimelines(Job& job, std::string_view suffix,
                  std::string (*write)(const Project&, const Group&)) {
  const bool several = job.project.groups.size() > 1;
  int number = 0;
  for (const Group& group : job.project.groups)
    job.add(several ? "SYNCED_" + numberText(++number) + "--" : "SYNCED--", suffix,
            write(job.project, group));
  if (job.project.unsynced.empty()) return;
  const Group row = unsyncedInARow(job.project, exactRate(job.project.fps));
  job.add("UNSYNCED--", suffix, write(job.project, row));
}

void addFormat(Job& job, std::string_view format) {
  if (format == "fcp") addXmeml(job, XmemlTarget::finalCut, "SYNCED_fcp--", "UNSYNCED_fcp--");
  if (format == "premiere")
    addXmeml(job, XmemlTarget::premiere, "SYNCED_premiereProCS6+ONLY--", "UNSYNCED_premierePro--");
  if (format == "fcpx") addFcpxml(job, FcpxmlVersion::v1_1, "SYNCED_FCP_X--", "UNSYNCED_FCP_X--");
  if (format == "fcpx110")
    addFcpxml(job, FcpxmlVersion::v1_10, "SYNCED_FCP_X_1.10--", "UNSYNCED_FCP_X_1.10--");
  if (format == "vegas") addVegas(job);
  if (format == "otio") addTimelines(job, "--.otio", otioDocument);
  if (format == "mlt") addTimelines(job, "--.mlt", mltDocument);
  if (format == "rpp") addTimelines(job, "--.rpp", reaperProject);
}

/// The established log lines of sound files (a sound file gets no picture track).
void logSoundFiles(Job& job) {
  for (const Media& media : job.project.media)
    if (extension(media.path) == "wav") {
      job.result.log.push_back("ova e wav file ova e funkcija vo koja se prai xml audioto....");
      job.result.log.push_back("OVA E WAVE FILE NE PRAVI VIDEO XML SEGMENT TRACKS VO SEQUENCE!");
    }
}

}  // namespace

std::span<const std::string_view> formatNames() { return kFormats; }

report::Status checkFormats(std::span<const std::string> formats) {
  for (const std::string& format : formats)
    if (std::ranges::find(kFormats, format) == kFormats.end()) {
      std::string known;
      for (const std::string_view name : kFormats) known.append(" ").append(name);
      return {"\"" + format + "\" is no format of documents; there are:" + known};
    }
  return {};
}

Documents documents(const Project& project, const DocumentOptions& options,
                    report::Console& console) {
  Job job{project, options.xmemlForm, options.time, console, {}};
  if (!isUsual(project.fps)) {
    job.result.error = "No editor has sequences of " + numberText(project.fps) +
                       " frames per second, so no documents were written";
    return std::move(job.result);
  }
  std::ranges::replace(job.time, ':', '-');
  job.result.log = changedNames(project);
  for (const std::string_view format : kFormats)
    if ((options.formats.empty() && format != kOnlyIfAsked) ||
        std::ranges::find(options.formats, format) != options.formats.end())
      addFormat(job, format);
  logSoundFiles(job);
  return std::move(job.result);
}

std::vector<std::string> changedNames(const Project& project) {
  std::vector<std::string> sentences;
  for (const Media& media : project.media)
    if (cleanText(media.path) != media.path)
      sentences.push_back(
          "the name of " + oneLine(media.path) +
          " holds bytes that no document can carry; they are written as \xEF\xBF\xBD");
  return sentences;
}

}  // namespace timeline
