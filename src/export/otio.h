#pragma once

#include <string>

#include "export/project.h"

namespace timeline {

/// An OpenTimelineIO document: a timeline for each group, inside a collection unless there is just
/// one. Times are whole frames at the exact rate; the exact seconds stand in the metadata. Every
/// clip has a marker with its confidence. Pure: callable from any thread.
std::string otioDocument(const Project& project);

}  // namespace timeline
