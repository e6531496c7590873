#pragma once

#include <array>
#include <string_view>

namespace run {

/// What a user chooses for a run, the same for the window and the command line.

/// The tolerance: the factor by which the threshold for peaks of the sound decays per frame of
/// 0.024 s. The smaller, the more peaks are kept, which finds more and takes longer.
inline constexpr double kFastTolerance = 0.995;
inline constexpr double kDefaultTolerance = 0.99;
inline constexpr double kSlowTolerance = 0.985;

/// The mode flag. 1 accepts more pairs from the vote; every other value only the surest ones.
inline constexpr int kDefaultMode = 1;

/// Frame rates of the sequence, as they are written. The exact rate (24000/1001) follows from them.
inline constexpr std::array<std::string_view, 8> kFrameRates = {"23.976", "24", "25",    "29.97",
                                                                "30",     "50", "59.94", "60"};
inline constexpr double kDefaultFrameRate = 25.0;
inline constexpr int kDefaultWidth = 1920, kDefaultHeight = 1080;  // pixels

/// Editors that documents are written for; a run writes all unless told otherwise.
inline constexpr std::array<std::string_view, 4> kFormats = {"fcp7", "premiere", "fcpx", "vegas"};

/// A run holds fewer files than this, device group markers and the dummy entry included.
inline constexpr int kMaxFiles = 999;

}  // namespace run
