#pragma once

#include <array>

namespace place {

// Printed by bench/fit_odds for 28,384 matches of 29 kinds of shoots, seeds 3 to 5 and 201 to 203:
// of products() of the features.
inline constexpr std::array<double, 120> kMatchWeights{
    0.170,  -0.425, -0.465, 1.300,  -0.212, 0.294,  0.691,  0.180,  0.800,  0.031,  1.085,  -0.072,
    0.081,  -0.553, 0.356,  -0.687, 0.950,  1.451,  0.273,  -0.633, 0.356,  -0.414, -0.527, -0.253,
    -0.034, 0.218,  -0.022, -1.185, 0.032,  0.439,  0.621,  -0.280, -0.292, -0.281, -0.192, 0.266,
    -0.919, 1.095,  0.037,  -0.041, -0.346, -0.303, -0.639, 0.672,  -0.033, -0.237, 0.148,  -0.268,
    0.183,  2.315,  0.000,  0.000,  -0.239, -0.306, 0.825,  0.524,  0.007,  -0.279, -0.089, -0.203,
    0.891,  -0.279, 0.205,  0.870,  0.268,  -0.310, -0.278, 0.000,  -0.398, 0.736,  -0.277, 0.147,
    -0.077, -0.350, 0.228,  -0.639, 0.000,  -0.343, 0.871,  0.189,  -0.078, 0.037,  -0.149, 0.174,
    0.180,  0.307,  0.140,  0.157,  0.045,  -0.093, -0.054, 0.103,  -0.216, 0.681,  -0.118, 0.395,
    0.050,  -0.115, 0.119,  -0.135, 2.041,  -0.132, 0.004,  -0.124, 0.402,  0.432,  0.149,  0.210,
    -0.995, 0.396,  -0.072, 0.081,  0.000,  -0.029, 0.252,  0.000,  0.032,  -0.553, -0.047, 0.183,
};

// The log odds with which recordings that overlap hear each other: of 1, and of the logarithms of
// the strength they reach with others, in tens, and of the seconds they share, in tens.
inline constexpr std::array<double, 3> kHeardWeights{2.552, 0.954, 0.498};

// The share of pairs that do not overlap, of those listened to, in which something fits.
inline constexpr double kMatchedAnyway = 0.145;

}  // namespace place
