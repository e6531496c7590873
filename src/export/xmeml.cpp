#include "export/xmeml.h"

#include "export/lanes.h"
#include "export/xmeml_forms.h"

namespace timeline {
namespace {

XmemlContents contentsOf(const Project& project, Part part) {
  if (part == Part::synced)
    return {"SYNCED", project.groups, groupedMedia(project), project.unsynced, false};
  XmemlContents contents{"UNSYNCED", {}, project.unsynced, {}, true};
  if (!project.unsynced.empty())
    contents.groups.push_back(unsyncedInARow(project, exactRate(project.fps)));
  return contents;
}

}  // namespace

std::string xmemlDocument(const Project& project, XmemlForm form, XmemlTarget target, Part part) {
  const XmemlContents contents = contentsOf(project, part);
  return form == XmemlForm::compact ? compactXmeml(project, contents, target)
                                    : completeXmeml(project, contents, target);
}

}  // namespace timeline
