#pragma once

#include "place/placement.h"
#include "run/compare_stage.h"
#include "run/material.h"
#include "run/sync_run.h"

namespace run {

/// Where every recording stands: by its sound, or with `align` false by the accepted votes alone.
/// One whose sound cannot be read any more is left out: it has no samples from then on, and the
/// outcome says why.
place::Placement placeAll(Material& material, const Comparison& comparison, bool align,
                          const Services& services, Outcome& outcome);

/// Puts the placement into words and paths: groups, and files that stand alone with what was
/// tried and what to do.
void describePlacement(const place::Placement& placement, const Material& material,
                       Outcome& outcome);

}  // namespace run
