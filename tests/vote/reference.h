#pragma once

#include <optional>
#include <vector>

#include "analysis/matrix.h"
#include "vote/vote.h"

namespace reference {

/// The comparison and the vote as one would first write them down, slow and without tricks: what
/// the fast code must equal.
std::vector<unsigned long long> compareFingerprints(const analysis::MatrixXLI& x,
                                                    const analysis::MatrixXLI& y, int first,
                                                    int second, float secondsY);

std::optional<vote::OffsetStats> estimateOffset(std::vector<unsigned long long> hits);

}  // namespace reference
