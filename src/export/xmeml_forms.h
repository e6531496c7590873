#pragma once

#include <string>
#include <vector>

#include "export/xmeml.h"

namespace timeline {

/// What one document holds, whichever part of the run it is for.
struct XmemlContents {
  std::string name;           // of the project
  std::vector<Group> groups;  // a sequence each
  std::vector<int> media;     // a clip each, indices into Project::media
  std::vector<int> unsynced;  // in the groups' document: the media that stand in none
  bool shareTracks = false;   // the clips of all devices share the tracks
};

std::string compactXmeml(const Project& project, const XmemlContents& contents, XmemlTarget target);
std::string completeXmeml(const Project& project, const XmemlContents& contents,
                          XmemlTarget target);

}  // namespace timeline
