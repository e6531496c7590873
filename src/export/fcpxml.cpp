#include "export/fcpxml.h"

#include "export/fcpxml_clips.h"
#include "export/fcpxml_multicam.h"
#include "export/fcpxml_resources.h"
#include "export/lanes.h"

namespace timeline {
namespace {

Element sequence(const std::vector<Multicam>& multicams, FrameRate rate, FcpxmlVersion version) {
  Element spine("spine");
  std::int64_t end = 0;
  for (const Multicam& multicam : multicams) {
    for (Element& clip : multicamClips(multicam, end, rate, version)) spine.add(std::move(clip));
    end += multicam.length;
  }
  Element result("sequence");
  result.attribute("format", kDefaultFormat)
      .attribute("duration", timeText(end, rate))
      .attribute("tcStart", "0s")
      .attribute("tcFormat", "NDF")
      .attribute("audioLayout", "stereo")
      .attribute("audioRate", "48k");
  return result.add(spine);
}

/// One project holds everything: the groups one after the other in one sequence, or the clips.
Element established(const Element& resources, std::string_view name,
                    const std::vector<Multicam>& multicams, const std::vector<Element>& clips,
                    const Project& project) {
  Element content("project");
  content.attribute("name", name).add(resources);
  if (!multicams.empty())
    content.add(sequence(multicams, exactRate(project.fps), FcpxmlVersion::v1_1));
  for (const Element& clip : clips) content.add(clip);
  return Element("fcpxml").attribute("version", "1.1").add(content);
}

/// An event with one project for each group, or with the clips.
Element modern(const Element& resources, std::string_view name,
               const std::vector<Multicam>& multicams, const std::vector<Element>& clips,
               const Project& project) {
  Element event("event");
  event.attribute("name", name);
  for (const Multicam& multicam : multicams)
    event.add(Element("project")
                  .attribute("name", multicam.name)
                  .add(sequence({multicam}, exactRate(project.fps), FcpxmlVersion::v1_10)));
  Element library("library"), left("event");
  if (multicams.empty()) {
    for (const Element& clip : clips) event.add(clip);
    library.add(std::move(event));
  } else {  // what found no place is at hand beside the groups
    left.attribute("name", "Unsynced");
    for (const Element& clip : clips) left.add(clip);
    library.add(std::move(event));
    if (!clips.empty()) library.add(std::move(left));
  }
  return Element("fcpxml").attribute("version", "1.10").add(resources, std::move(library));
}

std::vector<Multicam> multicamsOf(const Project& project, FcpxmlVersion version) {
  std::vector<Multicam> result;
  int number = 0;
  for (const Group& group : project.groups)
    if (auto made = multicam(project, group, ++number, version)) result.push_back(*made);
  return result;
}

std::vector<Element> looseClips(const Project& project, FcpxmlVersion version) {
  std::vector<Element> result;
  for (const int media : project.unsynced)
    if (auto clip = ClipWriter(project, version).looseClip(media)) result.push_back(*clip);
  return result;
}

}  // namespace

std::string fcpxmlDocument(const Project& project, FcpxmlVersion version, Part part) {
  const bool synced = part == Part::synced;
  const auto multicams = synced ? multicamsOf(project, version) : std::vector<Multicam>{};
  const bool both = synced && version == FcpxmlVersion::v1_10 && !multicams.empty();
  const auto clips = synced && !both ? std::vector<Element>{} : looseClips(project, version);
  Element resources("resources");
  resources.add(sequenceFormat(project, version));
  std::vector<int> used = synced ? groupedMedia(project) : project.unsynced;
  if (both) used.insert(used.end(), project.unsynced.begin(), project.unsynced.end());
  for (const Element& asset : assets(project, used, version)) resources.add(asset);
  for (const Multicam& multicam : multicams) resources.add(multicam.media);
  const auto layOut = version == FcpxmlVersion::v1_1 ? established : modern;
  return layOut(resources, synced ? "SYNCED" : "UNSYNCED", multicams, clips, project)
      .document("fcpxml");
}

}  // namespace timeline
