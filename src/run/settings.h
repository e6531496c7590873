#pragma once

#include <array>

namespace run {

/// What a user chooses for a run, the same for the window and the command line.

/// The tolerance: the factor by which the threshold for peaks of the sound decays per frame of
/// 0.024 s. The smaller, the more peaks are kept, which finds more and takes longer.
inline constexpr double kFastTolerance = 0.995;
inline constexpr double kDefaultTolerance = 0.99;
inline constexpr double kSlowTolerance = 0.985;

/// The mode flag. 1 accepts more pairs from the vote; every other value only the surest ones.
inline constexpr int kDefaultMode = 1;

inline constexpr std::array kFrameRates = {23.976, 24.0, 25.0, 29.97, 30.0, 50.0, 59.94, 60.0};
inline constexpr double kDefaultFrameRate = 25.0;
inline constexpr int kDefaultWidth = 1920, kDefaultHeight = 1080;  // pixels

}  // namespace run
