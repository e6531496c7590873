#pragma once

#include <string>

#include "export/project.h"
#include "export/xmeml.h"

namespace timeline {

/// 1.1 is the established document; 1.10 the one that current editors read.
enum class FcpxmlVersion { v1_1, v1_10 };

/// A Final Cut Pro X document: one multicam for each group, one angle for each device; unsynced
/// files as plain clips. Pure: callable from any thread.
std::string fcpxmlDocument(const Project& project, FcpxmlVersion version, Part part);

}  // namespace timeline
