#pragma once

#include "export/project.h"
#include "place/placement.h"
#include "run/material.h"
#include "run/sync_run.h"

namespace run {

/// The documents' view of a run: every usable file, the groups, the files in no group.
timeline::Project projectOf(const place::Placement& placement, const Material& material,
                            const Settings& settings);

/// Writes the two decision tables into the working directory. Failures become notices.
void writeTables(const std::vector<float>& table, const Services& services, Outcome& outcome);

/// Writes all wanted documents into the folder of results and lists them in `outcome`. Failures
/// become notices.
void writeDocuments(const timeline::Project& project, const Options& options,
                    const Services& services, Outcome& outcome);

}  // namespace run
