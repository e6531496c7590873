#pragma once

#include <span>

namespace analysis {

/// Replaces powers by the natural logarithms of their roots, of which none is below that of
/// `floor`: positive and no denormal number. To a few units in the last place, and with the same
/// bits on every processor; what is not a number counts as the floor.
void toLogMagnitudes(std::span<float> powers, float floor);

}  // namespace analysis
