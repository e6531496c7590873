#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

namespace vote {

inline constexpr int kReachPlaces = 2;  // hits as many frames from a candidate may speak for it
inline constexpr int kSectionBits = 32;

/// The hits of a pair by their frame difference: bit s of a place is a hit of section s.
using Places = std::span<const std::uint32_t>;

constexpr bool has(std::uint32_t sections, int section) { return sections >> section & 1; }

struct PlacedHit {
  int section, place;
  bool operator==(const PlacedHit&) const = default;
};
inline constexpr PlacedHit kNoHit{-1, -1};

/// Where sections begin and end. Hits are in order of section, then of place, so only there does
/// their order jump from place to place.
class SectionEnds {
 public:
  /// `filled`: the places with hits, ascending.
  SectionEnds(Places places, std::span<const int> filled);

  PlacedHit lastHit() const { return lastHit_; }
  PlacedHit lastButOne() const { return lastButOne_; }
  bool endsSection(PlacedHit hit) const { return last_[hit.section] == hit.place; }

  /// The first hit of the section after that of `hit`; none after the last section.
  PlacedHit firstAfter(PlacedHit hit) const;

  /// Of `places` many those where hits of more than one section may follow one another, and those
  /// of the last two hits.
  std::vector<bool> crossings(std::size_t places) const;

 private:
  using Ends = std::array<int, kSectionBits>;

  static void note(Ends& ends, std::uint32_t sections, int place, std::uint32_t& missing);
  PlacedHit endOf(int section) const { return {section, last_[section]}; }
  PlacedHit hitBefore(Places places, PlacedHit hit) const;

  std::uint32_t all_ = 0;  // sections with hits
  Ends first_, last_;      // places by section
  PlacedHit lastHit_ = kNoHit, lastButOne_ = kNoHit;
};

}  // namespace vote
