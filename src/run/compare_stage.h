#pragma once

#include <vector>

#include "run/material.h"
#include "run/sync_run.h"
#include "vote/vote.h"

namespace run {

/// What comparing all pairs of files gave.
struct Comparison {
  std::vector<float> table;           // the sync table: accepted pairs, six numbers each
  std::vector<vote::PairVote> votes;  // for the placement: those that say most
};

/// Compares every pair of files and votes on it; tells tempresults.txt of each.
///
/// The device groups count the list before unusable files were dropped, and the sync table is made
/// with them as they stand: after a drop they name the wrong files. The placement must not suffer
/// from that, so it gets the votes of all pairs whose files truly come from two devices, and no
/// others. The fingerprints are given up for it.
Comparison compareAll(Material& material, int mode, const Services& services);

}  // namespace run
