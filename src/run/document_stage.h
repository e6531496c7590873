#pragma once

#include <functional>
#include <string>

#include "export/project.h"
#include "project/project.h"
#include "run/clock_stage.h"
#include "run/material.h"
#include "run/sync_run.h"

namespace run {

/// Writes the two decision tables into the working directory. Failures become notices.
void writeTables(const std::vector<float>& table, const Services& services, Outcome& outcome);

/// Makes the folder for documents, a whole path, with the one for edit lists in it.
void makeDocumentsFolder(const std::string& folder, Outcome& outcome);

/// Writes all wanted documents into `folder`, which is there with its VEGAS_SEQUENCES, and lists
/// them in `outcome`. Failures become notices.
void writeDocuments(const timeline::Project& project, const std::string& folder,
                    const Options& options, const Services& services, Outcome& outcome);

/// The converted sound of a file by its path, for finding quiet moments; empty if there is none.
using SoundOf = std::function<std::string(const std::string&)>;

/// All that is made of a project: sound written anew where clocks drift or where it is asked for,
/// then every wanted document.
void writeResults(const project::Project& project, const std::string& folder,
                  const Options& options, const SoundOf& soundOf, const Services& services,
                  Outcome& outcome);

/// Writes a project's documents into `folder`, a whole path, which is made if it is missing;
/// nothing is listened to. Returns what the project holds, as its documents have it, and what was
/// written and what was not.
Outcome exportDocuments(const project::Project& project, const std::string& folder,
                        const Services& services);

}  // namespace run
