#pragma once

#include "project/project.h"
#include "run/outcome.h"

namespace run {

/// A project as reports and tables show it. Excluded clips are among the recordings that stand
/// alone, with that as their reason.
Outcome outcomeOf(const project::Project& project);

}  // namespace run
