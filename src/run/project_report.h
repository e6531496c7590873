#pragma once

#include "project/project.h"
#include "run/outcome.h"

namespace run {

/// A project as reports and tables show it. Excluded clips are among the recordings that stand
/// alone, with that as their reason.
Outcome outcomeOf(const project::Project& project);

/// Puts what stands where by now into `outcome`, with clips that a run left where they were or that
/// a clock placed; converted sounds stay known.
void showProject(const project::Project& project, Outcome& outcome);

}  // namespace run
