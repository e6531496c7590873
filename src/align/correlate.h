#pragma once

#include <span>
#include <vector>

#include "align/recording.h"

namespace align {

/// Two pieces of sound, of one length, that may hear the same.
struct Pieces {
  std::vector<float> a, b;
};

/// How well each two pieces fit at every lag from -maxLag to maxLag samples (element maxLag is lag
/// 0; a positive lag means that `b` hears it earlier), in units of the function's own noise.
/// Generalised cross-correlation: the spectra are whitened in part, so that no loud tone decides
/// alone, and the level is evened out over time, so that no single bump does. All pieces have one
/// length, a multiple of 16; they are worked on by fours, so a multiple of four costs least.
std::vector<std::vector<float>> correlate(std::span<const Pieces> pieces, int maxLag);

/// What chance gives at each of those lags, in those units, for pieces that hear nothing in common
/// but are loud at certain times: where both are, there is more to correlate.
std::vector<float> chanceOf(const Pieces& pieces, int maxLag);

/// The same of every piece with itself.
std::vector<std::vector<float>> correlateWithSelf(std::span<const std::vector<float>> pieces,
                                                  int maxLag);

}  // namespace align
