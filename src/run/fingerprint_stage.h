#pragma once

#include "run/material.h"
#include "run/sync_run.h"

namespace run {

/// Fills the fingerprints and durations of all entries from their converted sounds, several at
/// once. Entries without sound, and all that a cancelled run did not come to, stay without
/// landmarks.
void fingerprintAll(Material& material, double tolerance, const Services& services);

}  // namespace run
