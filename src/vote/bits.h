#pragma once

#include <cstdint>

namespace vote {

/// std::popcount, which without special instructions is a call into a library.
constexpr std::uint32_t bitCount(std::uint64_t bits) {
  constexpr std::uint64_t kOnes = ~std::uint64_t{0};
  bits -= bits >> 1 & kOnes / 3;
  bits = (bits & kOnes / 5) + (bits >> 2 & kOnes / 5);
  bits = (bits + (bits >> 4)) & kOnes / 17;
  return static_cast<std::uint32_t>(bits * (kOnes / 255) >> 56);
}

}  // namespace vote
