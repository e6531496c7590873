#pragma once

#include <array>

namespace place {

// Printed by bench/fit_odds for 33,981 matches of 29 kinds of shoots, seeds 3 to 5, 201 to 203, 301
// and 302: of products() of the features.
inline constexpr std::array<double, 136> kMatchWeights{
    0.558,  -0.467, -0.448, 1.455,  -0.500, 0.220,  0.512,  0.043,  0.194,  -0.161, 1.213,  -0.144,
    0.072,  -0.577, 0.445,  -0.956, -0.508, 1.129,  1.878,  0.312,  -0.207, 0.639,  -0.379, -0.193,
    0.282,  -0.311, 0.406,  0.032,  -1.224, 0.266,  -0.484, 0.303,  0.809,  -0.471, -0.228, -0.257,
    -0.042, 0.146,  -0.536, 1.274,  0.073,  -0.037, -0.344, -0.197, -1.088, -0.723, 0.734,  -0.045,
    -0.317, 0.158,  -0.074, 0.247,  2.566,  0.000,  0.000,  -0.258, -0.341, 0.227,  0.832,  0.676,
    -0.021, -0.338, 0.032,  -0.308, 1.071,  -0.598, 0.403,  0.945,  0.149,  0.323,  -0.046, -0.078,
    0.000,  0.044,  0.509,  0.241,  0.460,  -0.081, -0.319, 0.051,  1.620,  -0.485, 0.000,  0.010,
    0.832,  0.195,  0.104,  -0.009, -0.092, -0.072, 0.858,  0.043,  0.126,  0.051,  -0.028, 0.185,
    -0.007, -0.031, -0.002, 0.300,  -0.686, 0.106,  -0.055, 0.609,  0.051,  -0.078, 0.129,  0.764,
    -0.198, 2.230,  -0.119, 0.042,  -0.221, 0.425,  0.229,  0.436,  -0.032, 0.113,  -1.005, 0.355,
    -0.332, -0.144, 0.072,  0.000,  -0.057, -0.193, 0.446,  0.000,  0.029,  0.037,  -0.577, -0.005,
    -0.162, 0.255,  0.040,  0.307,
};

// The log odds with which recordings that overlap hear each other: of 1, and of the logarithms of
// the strength they reach with others, in tens, and of the seconds they share, in tens.
inline constexpr std::array<double, 3> kHeardWeights{2.547, 0.912, 0.541};

// The share of pairs that do not overlap, of those listened to, in which something fits.
inline constexpr double kMatchedAnyway = 0.186;

}  // namespace place
