#pragma once

#include <span>
#include <string>
#include <vector>

#include "place/placement.h"
#include "project/project.h"
#include "run/compare_stage.h"
#include "run/material.h"
#include "run/outcome.h"
#include "run/sync_run.h"

namespace run {

/// A listed file as its project names it: by its whole path.
std::string pathInProject(const std::string& listed);

/// The list of a run over a project: the first file of every recording, devices of several between
/// markers.
std::vector<std::string> listOf(const project::Project& project);

/// Adds what a run's list names and the project does not have yet, with devices as the list says.
/// Devices are called after their folder or files.
void addEntries(project::Project& project, std::span<const Entry> entries);

/// Where the project of a run that ended at `time` ("14:05:09") lies among its results.
std::string projectPath(const std::string& folder, const std::string& time);

/// The settings of a run as its project keeps them; what a run does not know stays as in `before`.
project::Settings projectSettings(const Settings& settings, const Options& options,
                                  project::Settings before);

/// What a run found, for its project.
struct Findings {
  const Material& material;
  const place::Placement& placement;
  const Comparison& comparison;
  const Outcome& outcome;  // says why files were left out
};

/// Puts what a run found into the project: facts, lengths, groups, evidence, and why recordings
/// have no place. Recordings that the run did not have stay as they are, and so does every pinned
/// clip: what the run placed beside it moves to where it stands.
///
/// With `again`, numbers of recordings, only their places change; all others are the truth.
void fillProject(project::Project& project, const Findings& findings,
                 std::span<const project::Id> again = {});

}  // namespace run
