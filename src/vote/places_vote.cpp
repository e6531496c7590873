#include "vote/places_vote.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdlib>
#include <vector>

#include "vote/bits.h"
#include "vote/hit.h"
#include "vote/section_ends.h"
#include "vote/tally.h"

namespace vote {
namespace {

constexpr int kFar = kDeltas;  // says nothing for any candidate

/// Places with hits, ascending.
std::vector<int> filledPlaces(Places places) {
  std::vector<int> filled(places.size());
  std::size_t count = 0;
  for (std::size_t place = 0; place < places.size(); ++place) {
    filled[count] = static_cast<int>(place);
    count += places[place] != 0;  // no branch: it could not be foreseen
  }
  filled.resize(count);
  return filled;
}

/// What the hits around one place say about the candidate there.
class Window {
 public:
  Window(Places places, const SectionEnds& ends, int begin, int place)
      : places_(places),
        ends_(ends),
        place_(place),
        tally_{.delta = deltaOfDifference(begin + place)} {
    for (int away = -kReachPlaces; away <= kReachPlaces; ++away)
      distances_[away + kReachPlaces] =
          std::abs(deltaOfDifference(begin + place + away) - tally_.delta);
  }

  Tally tally() {
    std::uint32_t any = 0;
    for (int place = place_ - kReachPlaces; place <= place_ + kReachPlaces; ++place)
      any |= places_[place];
    for (; any != 0; any &= any - 1) hearSection(std::countr_zero(any));
    return tally_;
  }

 private:
  void hearSection(int section) {
    for (int place = place_ - kReachPlaces; place <= place_ + kReachPlaces; ++place) {
      const PlacedHit hit{section, place};
      if (!has(places_[place], section) || distance(hit) > kReach) continue;
      if (hit == ends_.lastHit() || hit == ends_.lastButOne()) continue;  // two must follow
      const PlacedHit next = after(hit), second = after(next);
      tally_.add(section, distance(hit), distance(next), distance(second));
    }
  }

  /// The next hit; none when it is too far off to matter.
  PlacedHit after(PlacedHit hit) const {
    if (hit == kNoHit || distance(hit) > kReach) return kNoHit;
    for (int place = hit.place + 1; place <= place_ + kReachPlaces; ++place)
      if (has(places_[place], hit.section)) return {hit.section, place};
    return ends_.endsSection(hit) ? ends_.firstAfter(hit) : kNoHit;
  }

  int distance(PlacedHit hit) const {
    const int away = hit.place - place_;
    if (hit == kNoHit || std::abs(away) > kReachPlaces) return kFar;
    return distances_[away + kReachPlaces];
  }

  Places places_;
  const SectionEnds& ends_;
  int place_;
  Tally tally_;
  std::array<int, 2 * kReachPlaces + 1> distances_;
};

/// Whether any section has two hits within reach of `place`.
bool isCrowded(Places places, int place) {
  std::uint32_t once = 0, twice = 0;
  for (int i = place - kReachPlaces; i <= place + kReachPlaces; ++i) {
    twice |= once & places[i];
    once |= places[i];
  }
  return twice != 0;
}

/// The tally of a candidate that the sections of `noted` speak for.
Tally tallyOf(int delta, int score, int counted, std::uint32_t noted) {
  return {.delta = delta,
          .score = score,
          .counted = counted,
          .sections = static_cast<int>(bitCount(noted)),
          .firstSection = std::countr_zero(noted),
          .lastSection = kSectionBits - 1 - std::countl_zero(noted)};
}

/// The tally of a candidate whose hits follow no other within its reach.
Tally lonely(std::uint32_t sections, int delta) {
  return tallyOf(delta, 0, 2 * static_cast<int>(bitCount(sections)), sections);
}

/// What Window says of a place where no two sections follow one another, for all sections at once:
/// all but the last hit of a section begin a run of two, all but the last two one of three.
Tally crowded(Places places, int begin, int place) {
  const int delta = deltaOfDifference(begin + place);
  const auto near = [&](int away, int hundredths) {
    const int distance = std::abs(deltaOfDifference(begin + place + away) - delta);
    return distance <= hundredths ? places[place + away] : 0;
  };
  const std::uint32_t own = places[place];
  std::uint32_t once = 0, twice = 0;
  int hits = 0;
  for (int away = -kReachPlaces; away <= kReachPlaces; ++away) {
    const std::uint32_t sections = near(away, kReach);
    twice |= once & sections;
    once |= sections;
    hits += static_cast<int>(bitCount(sections));
  }
  const int two = hits - static_cast<int>(bitCount(once));
  const int three = two - static_cast<int>(bitCount(twice));
  const int close = static_cast<int>(bitCount(near(-1, 2) & own & near(1, 2)));
  return tallyOf(delta, 30 * two + 100 * three + 200 * close,
                 2 * two + 3 * (three + close) + 2 * static_cast<int>(bitCount(own)), twice | own);
}

/// Whether the last hit stands at `place` alone: it is no candidate.
bool onlyLast(Places places, int place, PlacedHit lastHit) {
  return place == lastHit.place && places[place] == std::uint32_t{1} << lastHit.section;
}

}  // namespace

std::optional<OffsetStats> estimatePlaces(Places places, int begin) {
  const std::vector<int> filled = filledPlaces(places);
  const SectionEnds ends(places, filled);
  const std::vector<bool> crossing = ends.crossings(places.size());
  Election election;
  bool heardSingle = false;
  for (const int place : filled) {
    if (crossing[place]) {
      if (!onlyLast(places, place, ends.lastHit()))
        election.hear(Window(places, ends, begin, place).tally());
    } else if (isCrowded(places, place)) {
      election.hear(crowded(places, begin, place));
    } else if (const bool single = std::has_single_bit(places[place]); !single || !heardSingle) {
      election.hear(lonely(places[place], deltaOfDifference(begin + place)));
      heardSingle |= single;  // all single hits count alike: further ones change nothing
    }
  }
  return election.stats();
}

}  // namespace vote
