#pragma once

#include <string>

#include "export/project.h"

namespace timeline {

/// `complete` is what current editors and libraries read; `compact` is made of the fixed fragments
/// alone.
enum class XmemlForm { complete, compact };

/// Premiere gets attributes of its own.
enum class XmemlTarget { finalCut, premiere };

/// The groups, or the files that stand in none.
enum class Part { synced, unsynced };

/// An xmeml version 4 document, one sequence for each group. Pure: callable from any thread.
std::string xmemlDocument(const Project& project, XmemlForm form, XmemlTarget target, Part part);

}  // namespace timeline
