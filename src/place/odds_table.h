#pragma once

#include <array>

namespace place {

// Printed by bench/fit_odds: of products() of the features.
inline constexpr std::array<double, 120> kMatchWeights{
    0.142,  -0.253, -1.148, 1.675,  0.051,  0.260,  0.662,  0.280,  1.181,  -0.263, 1.171,  -0.251,
    0.124,  -0.668, 0.589,  -0.653, 1.880,  1.924,  0.106,  -0.549, 0.683,  -0.593, -0.899, -0.270,
    -0.302, 0.391,  -0.123, -1.932, -0.127, 0.113,  0.738,  -0.920, -0.077, -0.434, -0.018, 1.234,
    -1.220, 0.942,  0.128,  -0.063, -0.146, -0.938, -0.995, 1.114,  0.472,  0.028,  0.324,  0.629,
    0.352,  2.839,  0.000,  0.000,  -0.604, -0.670, 1.031,  1.311,  -0.201, -0.240, 0.448,  -0.087,
    1.058,  -0.250, 0.425,  1.869,  0.244,  -0.372, -0.495, 0.000,  0.037,  0.683,  -0.216, 0.279,
    -0.179, -0.942, 0.305,  -1.429, 0.000,  -0.600, 0.824,  0.050,  -0.259, 0.204,  -0.578, 0.187,
    0.280,  0.398,  0.180,  0.177,  0.121,  -0.258, -0.063, 0.121,  -0.650, 0.235,  0.049,  0.468,
    0.198,  -0.423, 0.259,  -0.104, 2.525,  -0.286, 0.043,  -0.268, 1.032,  0.562,  0.062,  0.267,
    -1.098, 0.004,  -0.251, 0.124,  0.000,  -0.101, 0.249,  0.000,  0.049,  -0.668, 0.272,  0.504,
};

// The log odds with which recordings that overlap hear each other: of 1, and of the logarithms of
// the strength they reach with others, in tens, and of the seconds they share, in tens.
inline constexpr std::array<double, 3> kHeardWeights{2.590, 0.961, 0.520};

// The share of pairs that do not overlap, of those listened to, in which something fits.
inline constexpr double kMatchedAnyway = 0.17;

}  // namespace place
