#include "vote/join.h"

#include <algorithm>
#include <array>
#include <bit>
#include <utility>

namespace vote {
namespace {

constexpr int kDigitBits = 11;
constexpr std::size_t kDigits = 1 << kDigitBits;
constexpr std::size_t kRadixPays = 1500;  // below, the counting costs more than comparing

/// One stable pass of a radix sort by the digit at `shift` of each code's distance from `least`.
void sortByDigit(std::span<const HitCode> from, std::span<HitCode> to, HitCode least, int shift) {
  const auto digit = [&](HitCode code) { return (code - least) >> shift & (kDigits - 1); };
  std::array<std::size_t, kDigits> next{};
  for (const HitCode code : from) ++next[digit(code)];
  std::size_t start = 0;
  for (std::size_t& slot : next) start += std::exchange(slot, start);
  for (const HitCode code : from) to[next[digit(code)]++] = code;
}

}  // namespace

std::span<const RowPair> mergeJoin(std::span<const std::uint64_t> hashesX,
                                   std::span<const std::uint64_t> hashesY,
                                   std::vector<RowPair>& room) {
  if (room.size() < hashesX.size() + 1) room.resize(hashesX.size() + 1);
  RowPair* found = room.data();
  std::size_t x = 0, y = 0;
  while (x < hashesX.size() && y < hashesY.size()) {  // no branch on the hashes: they are random
    const std::uint64_t hashX = hashesX[x], hashY = hashesY[y];
    *found = {static_cast<std::uint32_t>(x), static_cast<std::uint32_t>(y)};
    found += hashX == hashY;
    x += hashX <= hashY;
    y += hashX > hashY;
  }
  return {room.data(), found};
}

void sortHits(std::vector<HitCode>& hits) {
  if (hits.size() < kRadixPays) return std::sort(hits.begin(), hits.end());
  const auto [least, most] = std::minmax_element(hits.begin(), hits.end());
  const HitCode base = *least;
  const int bits = std::bit_width(*most - base);
  std::vector<HitCode> other(hits.size());
  for (int shift = 0; shift < bits; shift += kDigitBits) {
    sortByDigit(hits, other, base, shift);
    hits.swap(other);
  }
}

}  // namespace vote
