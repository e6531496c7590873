#include "analysis/logarithm.h"

#include <bit>
#include <cstdint>

namespace analysis {
namespace {

constexpr float kLn2 = 0.693147181f, kRootHalf = 0.707106781f;

/// log(1 + x) - x + x * x / 2 for x from the root of a half to the root of two, less 1; three
/// polynomials of the Cephes library's coefficients, which processors work on at the same time.
constexpr float remainder(float x) {
  const float cube = x * x * x;
  const float high = (7.0376836292e-2f * x - 1.1514610310e-1f) * x + 1.1676998740e-1f;
  const float middle = (-1.2420140846e-1f * x + 1.4249322787e-1f) * x - 1.6668057665e-1f;
  const float low = (2.0000714765e-1f * x - 2.4999993993e-1f) * x + 3.3333331174e-1f;
  return ((high * cube + middle) * cube + low) * cube;
}

/// The natural logarithm of a positive number that is not denormal. Without branches, so that a
/// loop over it runs on vectors.
constexpr float logarithm(float x) {
  const auto bits = std::bit_cast<std::uint32_t>(x);
  const float half = std::bit_cast<float>((bits & 0x007f'ffff) | 0x3f00'0000);  // from 0.5 to 1
  const bool low = half < kRootHalf;
  const float exponent = static_cast<float>(static_cast<std::int32_t>(bits >> 23) - 126);
  const float power = exponent - (low ? 1.0f : 0.0f);
  const float rest = (half - 1.0f) + (low ? half : 0.0f);
  return power * kLn2 + (rest + (remainder(rest) - 0.5f * (rest * rest)));
}

}  // namespace

void toLogMagnitudes(std::span<float> powers, float floor) {
  for (float& power : powers) power = 0.5f * logarithm(power > floor ? power : floor);
}

}  // namespace analysis
